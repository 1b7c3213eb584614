# Sourced: needs TOOL…: skips the test with a message if a tool is missing.
needs()
{
    for tool in "$@"; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed (script/bootstrap test)"; exit 77; }
    done
}
