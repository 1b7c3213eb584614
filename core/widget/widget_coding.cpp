// Compiles the JSON coding of the widget's summary.
#include <quillmere/records/json/instantiate.hpp>
#include <quillmere/widget/widget_tables.hpp>

namespace quillmere {

QUILLMERE_INSTANTIATE_CODING(WidgetPhase);
QUILLMERE_INSTANTIATE_CODING(WidgetRoute);
QUILLMERE_INSTANTIATE_CODING(WidgetCountdown);
QUILLMERE_INSTANTIATE_CODING(WidgetSnapshot);

}  // namespace quillmere
