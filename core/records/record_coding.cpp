// The JSON forms of the workflow records and their enumerations.
#include <quillmere/records/json/instantiate.hpp>
#include <quillmere/records/json/record_tables.hpp>

namespace quillmere {

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
