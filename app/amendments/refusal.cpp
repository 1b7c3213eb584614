#include "amendments/refusal.hpp"

namespace quillmere::amendments {

Possible timesBetween(Instant earliest, Instant latest)
{
    return earliest <= latest ? Possible(PossibleTimes{earliest, latest}) : Possible();
}

Possible lengthsBetween(double shortest, double longest)
{
    return shortest <= longest ? Possible(PossibleLengths{shortest, longest}) : Possible();
}

void refuseHere(const std::string& reason) { throw Refusal(reason, PossibleElsewhere{}); }

}  // namespace quillmere::amendments
