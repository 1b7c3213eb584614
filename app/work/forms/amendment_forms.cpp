// The forms of amendments that need a length or a time.
#include "amendments/back_out.hpp"
#include "amendments/change_length.hpp"
#include "amendments/forgot_to_end.hpp"
#include "amendments/go_on.hpp"
#include "amendments/was_away.hpp"
#include "work/break_extension.hpp"
#include "work/done_text.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/forms.hpp"
#include "work/forms/record_forms.hpp"

namespace quillmere::work {
namespace {

constexpr const char* pauseKey = "pause";

Answer answerIn(const Form& form, const Prompt& prompt)
{
    const std::string id(prompt.name);
    return {id, form.text(id)};
}

void addLine(Form& form, const Prompt& prompt) { form.add(fieldOf(prompt, "", std::string())); }

void setTime(Form& form, const Prompt& prompt, Instant instant, Instant now)
{
    if (const std::optional<std::size_t> index = form.indexOf(prompt.name)) {
        form.setValue(*index, base::localSecondSeenFrom({now, form.hours()}, instant));
    }
}

}  // namespace

void fillIn(Form& form, const base::Sleep& sleep, Instant now)
{
    setTime(form, earlierEndPrompt, sleep.from, now);
    setTime(form, awayFromPrompt, sleep.from, now);
    setTime(form, awayToPrompt, sleep.to, now);
}

void addLengthFields(Form& form, const QuillmereState& state, Instant)
{
    addLine(form, state.workflowState == WorkflowState::breaking ? extensionPrompt : lengthChangePrompt);
}

void saveLength(const Form& form, QuillmereState& state, Instant now)
{
    if (state.workflowState == WorkflowState::breaking) {
        extendBreak(state, durationFrom(answerIn(form, extensionPrompt)), now);
    } else {
        amendments::changeLength(state, lengthChangeFrom(answerIn(form, lengthChangePrompt)), now);
    }
}

void addGoOnFields(Form& form, const QuillmereState&, Instant)
{
    addLine(form, extensionPrompt);
    Field since = fieldOf(timeSinceEndPrompt, "", std::string("focus"));
    since.options = {{"focus", "focus"}, {pauseKey, "a pause"}};
    form.add(std::move(since));
}

void saveGoOn(const Form& form, QuillmereState& state, Instant now)
{
    const bool wasPause = form.text(timeSinceEndPrompt.name) == pauseKey;
    amendments::goOn(
        state, durationFrom(answerIn(form, extensionPrompt)),
        wasPause ? amendments::TimeSinceEnd::countsAsPause : amendments::TimeSinceEnd::countsAsFocus, now);
}

void addEarlierEndFields(Form& form, const QuillmereState&, Instant) { addLine(form, earlierEndPrompt); }

void saveEarlierEnd(const Form& form, QuillmereState& state, Instant now)
{
    amendments::forgotToEnd(state, pastTimeFrom(answerIn(form, earlierEndPrompt), now), now);
}

std::string earlierEndTimes(const Form& form, const QuillmereState&, const base::SeenFrom& here)
{
    return done::endedOn(pastTimeFrom(answerIn(form, earlierEndPrompt), here.now), here.hours);
}

void addAwayFields(Form& form, const QuillmereState&, Instant)
{
    addLine(form, awayFromPrompt);
    addLine(form, awayToPrompt);
}

void saveAway(const Form& form, QuillmereState& state, Instant now)
{
    const Instant from = pastTimeFrom(answerIn(form, awayFromPrompt), now);
    const Answer to = answerIn(form, awayToPrompt);
    amendments::wasAway(state, from, to.text.empty() ? std::nullopt : std::optional(pastTimeFrom(to, now)),
                        now);
}

std::string awayTimes(const Form& form, const QuillmereState& state, const base::SeenFrom& here)
{
    const Answer to = answerIn(form, awayToPrompt);
    const WorkSession* const session = state.currentSession();
    const Instant last = session && session->pausedAt ? *session->pausedAt : here.now;
    return done::pauseOf(pastTimeFrom(answerIn(form, awayFromPrompt), here.now),
                         to.text.empty() ? last : pastTimeFrom(to, here.now), here.hours);
}

void addAnotherStartFields(Form& form, const QuillmereState&, Instant) { addLine(form, anotherStartPrompt); }

void saveAnotherStart(const Form& form, QuillmereState& state, Instant now)
{
    const Answer answer = answerIn(form, anotherStartPrompt);
    const Instant start = startFrom(answer, now);
    requireToCome(answer.field, start, {now, form.hours()});
    amendments::backOut(state, amendments::StartAt{start}, now);
}

std::string anotherStartTimes(const Form& form, const QuillmereState&, const base::SeenFrom& here)
{
    return done::scheduledFor(startFrom(answerIn(form, anotherStartPrompt), here.now), here.hours);
}

}  // namespace quillmere::work
