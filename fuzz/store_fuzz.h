#pragma once
// The store every input starts from: the initial values, as the wizard has them after start-up.
// Running the defaults for each input took most of an input's time (above all their record of
// the user inputs), and a new store per input is a large object to build and tear down; so the
// defaults run once and each input gets one kept store set back to them by plain assignment.
// Every input still starts from the same state, so a crash replays from its input alone.
#include "ModDefaults.h"
#include "clsExGlobalVars.h"

inline qdf::clsExGlobalVars& FreshStore() {
    static const qdf::clsExGlobalVars* const defaults = [] {
        auto* s = new qdf::clsExGlobalVars;
        qdf::InitializeDefaults(*s);
        return s;
    }();
    static qdf::clsExGlobalVars* const store = new qdf::clsExGlobalVars;
    store->AssignValuesFrom(*defaults);
    return *store;
}
