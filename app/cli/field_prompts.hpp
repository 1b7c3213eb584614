// The prompt for a field of a record.
#pragma once

#include "base/environment.hpp"
#include "base/text/local_time.hpp"
#include "cli/prompt.hpp"
#include "work/fields/fields.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>

namespace quillmere::cli {

/// The environment to ask in, and the situation that answers depend on.
struct Asking {
    base::Environment& environment;
    const QuillmereState& state;
    base::SeenFrom here;
};

/// Asks for a field that is a text, a number, a duration or a completion. Enter keeps the present value, the
/// arrow keys bring earlier ones; asks again until the answer can be used, also where the engine would refuse
/// it, and until `alsoRequire` accepts it. Absent: the present value stays. A completion has no present
/// value: nothing is chosen for the person. Instantiated for the records of RecordOptions.
template <class Record>
std::optional<std::string> askForField(const Asking& asking, const work::RecordField<Record>& field,
                                       const Record& present, const Require& alsoRequire = {});

}  // namespace quillmere::cli
