// The error about a newer file says which version was found and which one is supported.
#include <quillmere/widget/widget_snapshot_store.hpp>

quillmere::WidgetSnapshotLoadError error()
{
    using Error = quillmere::WidgetSnapshotLoadError;
#ifdef AS_IT_SHOULD_BE
    return Error::unsupported(2, 1);
#else
    return Error::of<Error::unsupportedSchemaVersion>();
#endif
}
