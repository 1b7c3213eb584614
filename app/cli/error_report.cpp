#include "cli/error_report.hpp"

#include "amendments/refusal.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "base/text/sanitize.hpp"
#include "cli/json_output.hpp"
#include "cli/program.hpp"
#include "work/amendment_text.hpp"
#include "work/not_possible.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <nlohmann/json.hpp>

#include <functional>
#include <ostream>
#include <string_view>
#include <system_error>

namespace quillmere::cli {
namespace {

ExitCode report(ExitCode code, std::string_view name, const std::string& message, Program& program)
{
    std::ostream& err = program.environment().err;
    if (program.settings().json) {
        const base::Json error = {{"error", {{"case", name}, {"message", message}}},
                                  {"events", eventsJson(program.events())}};
        err << base::jsonLine(error) << '\n';
    } else {
        err << base::sanitized(message) << '\n';
    }
    return code;
}

/// The text of a refusal where the work stands; without that, if the files cannot be read any more.
std::string withSituation(const std::function<std::string(const workspace::Situation&)>& text,
                          const std::exception& refusal, Program& program)
{
    try {
        return text(program.workspace().look(base::Reach::present));
    } catch (const std::runtime_error&) {
        return base::failureText(refusal);
    }
}

std::string refusalText(const WorkflowError& error, Program& program)
{
    return withSituation(
        [&](const workspace::Situation& situation) {
            return work::refusalText(error, program.command, situation, program.hours());
        },
        error, program);
}

std::string refusalText(const amendments::Refusal& refusal, Program& program)
{
    return withSituation(
        [&](const workspace::Situation& situation) {
            return work::refusalText(refusal, situation, program.hours());
        },
        refusal, program);
}

}  // namespace

ExitCode reportError(ExitCode code, const std::string& message, Program& program)
{
    return report(code, nameOf(code), message, program);
}

ExitCode reportCurrentException(Program& program)
{
    try {
        throw;
    } catch (const WorkflowError& error) {
        return report(ExitCode::refused, error.caseName(), refusalText(error, program), program);
    } catch (const amendments::Refusal& refusal) {
        return reportError(ExitCode::refused, refusalText(refusal, program), program);
    } catch (const ProgramError& error) {
        return reportError(error.code(), error.what(), program);
    } catch (const base::Refusal& refusal) {
        return reportError(exitCodeOf(refusal.kind()), refusal.what(), program);
    } catch (const CodingError& error) {
        return reportError(ExitCode::unusableData, base::failureText(error), program);
    } catch (const std::system_error& error) {
        return reportError(ExitCode::fileError, base::failureText(error), program);
    }
}

}  // namespace quillmere::cli
