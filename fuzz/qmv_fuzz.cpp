// Any byte string read as a QMV file: the reader must end with 0 or 1, fail exactly when the
// bytes don't hold nine whole blocks (or the revision is refused), and what it loads must
// write back into a file that reads again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "ModBinary.h"
#include "store_fuzz.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // No log folder: a format error's entry fails and is dropped, as on a machine without one.
    setenv("QDF_LOG_DIR", "/nonexistent/qdf-fuzz/", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    // The management record outlives a file; each input starts from the program's start.
    qdf::ResetBinaryRecord();
    qdf::clsExGlobalVars& store = FreshStore();
    const std::int32_t rc = qdf::OpenBinaryBytes(store, bytes);
    if (rc != 0 && rc != 1) std::abort();
    if (rc == 1) return 0;
    // Success only for nine whole blocks; checked on success alone, since most inputs fail and
    // a second parse of each would cost as much as the reading itself. Kept between inputs, so
    // that their thousands of entries are not allocated anew each time.
    static std::vector<qdf::QmvMemberValue> values;
    if (!qdf::ParseBinaryBytes(bytes, values)) std::abort();
    const std::vector<std::uint8_t> again = qdf::BinaryFileBytes(store);
    if (!qdf::ParseBinaryBytes(again, values)) std::abort();
    return 0;
}
