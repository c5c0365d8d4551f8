// Any text read as a Flow Param (Mgt) file: the import ends with 0 or 1, and a file too long
// for the cell array changes no member.
#include "ModXmtrParam.h"
#include "paramfile_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const InputStore input;
    qdf::clsExGlobalVars& store = input.get();
    const std::string_view text = PrepareStore(store, data, size);
    const std::int32_t before = store.Mgt_GasDensDiv;
    const std::int32_t rc = qdf::ImportMgtText(store, text);
    if (rc != 0 && rc != 1) std::abort();
    const std::size_t lines = LineEndCharacters(text);
    if (lines > 200 && rc == 0) std::abort();  // more rows than the array holds
    if (rc == 1 && lines > 200 && store.Mgt_GasDensDiv != before) std::abort();
    return 0;
}
