// The two entry points a frame resolves in the module's shared library.

#include <QWidget>

#include "SDKModule.h"
#include "TVRQDFFlowConfigWizard.h"

extern "C" {

ISDKModule* qdf_create_module(void* parentWidget) {
    return new TVRQDFFlowConfigWizard(static_cast<QWidget*>(parentWidget));
}

void qdf_destroy_module(ISDKModule* module) {
    delete static_cast<TVRQDFFlowConfigWizard*>(module);
}
}
