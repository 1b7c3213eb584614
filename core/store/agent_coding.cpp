// Compiles the JSON coding of the agent's summary.
#include <quillmere/records/json/record_parts.hpp>
#include <quillmere/store/agent_tables.hpp>

namespace quillmere {

QUILLMERE_INSTANTIATE_CODING(AgentTaskSnapshot);
QUILLMERE_INSTANTIATE_CODING(AgentSnapshot);

}  // namespace quillmere
