#include "cli/error_report.hpp"

#include "amendments/refusal.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "base/text/sanitize.hpp"
#include "base/text/style.hpp"
#include "cli/json_output.hpp"
#include "cli/program.hpp"
#include "cli/status.hpp"
#include "work/amendment_text.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <nlohmann/json.hpp>

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

/// Prints the status, which shows where the work stands and what is possible now.
void printPossibleSteps(Program& program)
{
    std::ostream& err = program.environment().err;
    err << '\n';
    printStatus(err, program.workspace().look(), base::Style(false), program.hours());
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
        const ExitCode code = report(ExitCode::refused, error.caseName(), base::failureText(error), program);
        if (error == WorkflowError::invalidTransition && !program.settings().json) {
            printPossibleSteps(program);
        }
        return code;
    } catch (const amendments::Refusal& refusal) {
        return reportError(ExitCode::refused, work::refusalText(refusal, program.environment().clock()),
                           program);
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
