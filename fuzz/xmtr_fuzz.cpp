// Any text read as a Flow Param (Xmtr) file: the import ends with 0 or 1, a file too long for
// the cell array changes no member, and whatever was stored exports.
#include "ModXmtrParam.h"
#include "paramfile_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const InputStore input;
    qdf::clsExGlobalVars& store = input.get();
    const std::string_view text = PrepareStore(store, data, size);
    const std::int32_t rc = qdf::ImportXmtrText(store, text);
    if (rc != 0 && rc != 1) std::abort();
    const std::size_t ends = LineEndCharacters(text);
    // Over 300 line-end characters are over 150 rows: more than the cell array holds.
    if (ends > 300 && (rc == 0 || store.Xmtr_PDCode != qdf::kNotEntered)) std::abort();
    (void)qdf::XmtrFileText(store);
    return 0;
}
