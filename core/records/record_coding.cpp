// Compiles the JSON coding of the records of the state and of their enumerations.
#include <quillmere/records/json/record_parts.hpp>

namespace quillmere {

namespace json {
QUILLMERE_ALL_RECORD_PARTS();
}  // namespace json

QUILLMERE_INSTANTIATE_CODING(WorkflowState);
QUILLMERE_INSTANTIATE_CODING(CompletionResult);
QUILLMERE_INSTANTIATE_CODING(Outcome);
QUILLMERE_INSTANTIATE_CODING(SessionPlan);
QUILLMERE_INSTANTIATE_CODING(SessionReview);
QUILLMERE_INSTANTIATE_CODING(WorkSession);
QUILLMERE_INSTANTIATE_CODING(BlockReview);
QUILLMERE_INSTANTIATE_CODING(Block);
QUILLMERE_INSTANTIATE_CODING(AgentQuestion);
QUILLMERE_INSTANTIATE_CODING(QuillmereState);

}  // namespace quillmere
