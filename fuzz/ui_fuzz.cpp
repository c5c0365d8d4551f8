// Any text read as a Flow Param (UI) file: the import ends with 0 or 1, and a store it
// loaded exports a file that imports again.
#include "ModUserInput.h"
#include "paramfile_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const InputStore input;
    qdf::clsExGlobalVars& store = input.get();
    const std::string_view text = PrepareStore(store, data, size);
    const std::int32_t rc = qdf::ImportUIText(store, text);
    if (rc != 0 && rc != 1) std::abort();
    (void)qdf::UIFileText(store);
    return 0;
}
