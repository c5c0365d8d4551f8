#pragma once
// The QMV and Flow Param menu commands of the main control, free of any toolkit: the dialog
// comes in as a ChooseFile, the questions and notices go through the frame's message service.
// A save dialog that failed (a read-only file chosen) is reported by the chooser throwing
// FileAccessError. Each returns true when the store was changed from a file, so that the main
// control refills its pages.

#include <cstdint>
#include <functional>

#include "FileChooser.h"

class ISDKMessageService;

namespace qdf {

class clsExGlobalVars;
class IComponentList;

inline constexpr const char* kQmvFilter = "QMV File (*.QMV) | *.QMV";

inline constexpr const char* kOpenFailedText = "Error occurs while opening a file";
inline constexpr const char* kOverwriteQuestion =
    "Flow configuration data will be overwritten! Are you sure you want to proceed?";
inline constexpr const char* kReadOnlyText =
    "System can't save a read-only file. Please save under a different name! Save aborted.";

bool ImportQMVCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& open,
                      const IComponentList* components = nullptr);
bool ExportQMVCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& save);

bool ImportFlowParamUICommand(clsExGlobalVars& store, ISDKMessageService& messages,
                              const ChooseFile& open);
bool ImportFlowParamXmtrCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                                const ChooseFile& open);
// The main control applies the debug rule afterwards: the file may switch the debug mode.
bool ImportFlowParamMgtCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                               const ChooseFile& open);

// The exports run the calculation first (driver, fits or both), then the dialog.
bool ExportFlowParamUICommand(clsExGlobalVars& store, ISDKMessageService& messages,
                              const ChooseFile& save);
bool ExportFlowParamXmtrCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                                const ChooseFile& save);
bool ExportFlowParamCalcCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                                const ChooseFile& save);

// The calculation entries the exports run; replaceable so a test can watch the order.
struct ExportCalculation {
    std::function<std::int32_t(clsExGlobalVars&)> runCalculation;
    std::function<std::int32_t(clsExGlobalVars&)> runFits;
};
ExportCalculation& ExportCalculationEntries();

}  // namespace qdf
