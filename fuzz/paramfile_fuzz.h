#pragma once
// Shared by the flow parameter file targets: the store with the initial values and the first
// byte choosing the grid sizes, so the table sections of every fluid kind are reached.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "store_fuzz.h"

// The kept store at its initial values (FreshStore) for one input, set back when the input is
// done rather than when the next one starts: then what the input stored in it is freed within
// the input, and libFuzzer, which runs an input a second time as a leak check whenever it ends
// holding more allocations than it began with, runs each input once.
class InputStore {
  public:
    InputStore() : store_(First()) {}
    ~InputStore() { FreshStore(); }
    InputStore(const InputStore&) = delete;
    InputStore& operator=(const InputStore&) = delete;
    qdf::clsExGlobalVars& get() const { return store_; }

  private:
    static qdf::clsExGlobalVars& First() {
        static qdf::clsExGlobalVars& store = FreshStore();
        return store;
    }
    qdf::clsExGlobalVars& store_;
};

inline std::string_view PrepareStore(qdf::clsExGlobalVars& store, const uint8_t* data,
                                     size_t size) {
    if (size == 0) return {};
    const int pick = data[0];
    store.Mgt_GasDensPressDiv = pick % 19 - 1;
    store.Mgt_GasDensTempDiv = (pick / 19) % 5 + 1;
    return {reinterpret_cast<const char*>(data + 1), size - 1};
}

// The CR and LF characters of the text, found by the library's search: a byte loop here costs
// more than the import itself once instrumented for fuzzing.
inline std::size_t LineEndCharacters(std::string_view text) {
    std::size_t count = 0;
    for (const char end : {'\r', '\n'})
        for (auto at = text.find(end); at != std::string_view::npos; at = text.find(end, at + 1))
            ++count;
    return count;
}
