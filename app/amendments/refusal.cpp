#include "amendments/refusal.hpp"

#include "amendments/possible.hpp"

namespace quillmere::amendments {

Possible timesBetween(Instant earliest, Instant latest)
{
    return earliest <= latest ? Possible(PossibleTimes{earliest, latest}) : Possible();
}

Possible lengthsBetween(double shortest, double longest)
{
    return shortest <= longest ? Possible(PossibleLengths{shortest, longest}) : Possible();
}

void refuseHere(const QuillmereState& state, const std::string& reason)
{
    std::string names;
    for (const std::string_view name : possibleCommands(state)) {
        names += (names.empty() ? "" : ", ") + std::string(name);
    }
    throw Refusal(reason +
                  (names.empty() ? " Nothing can be amended now." : " Possible now: " + names + "."));
}

}  // namespace quillmere::amendments
