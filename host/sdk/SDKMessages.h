#pragma once
// The module's message titles and the style sets it asks the frame's message service for.
// Every message of the module goes through ShowStyledMessage, so titles and styles live here
// only.

#include <cstdint>
#include <string>

#include "SDKFrame.h"

namespace qdf {

inline constexpr const char* kTitleError = "QDF300 Error";
inline constexpr const char* kTitleWarning = "QDF300 Warning";
inline constexpr const char* kTitleInformation = "QDF300 Information";
inline constexpr const char* kTitleWizard = "QDF300 Flow Configuration Wizard";

struct MessageStyle {
    std::int32_t kind, buttons, defaultAnswer;
};

// A notice with one button, as the file commands and the start-up show it.
inline constexpr MessageStyle kStopNotice{sdk::kMessageKindError, sdk::kMessageButtonsOk,
                                          sdk::kMessageAnswerOk};
// A notice with one button, as the pages show refusals and information.
inline constexpr MessageStyle kPageNotice{sdk::kMessageKindInformation, sdk::kMessageButtonsOk,
                                          sdk::kMessageAnswerOk};
// A Yes/No question whose default is No.
inline constexpr MessageStyle kAskDefaultNo{sdk::kMessageKindQuestion, sdk::kMessageButtonsYesNo,
                                            sdk::kMessageAnswerNo};
// A Yes/No question whose default is Yes.
inline constexpr MessageStyle kAskDefaultYes{sdk::kMessageKindQuestion, sdk::kMessageButtonsYesNo,
                                             sdk::kMessageAnswerYes};

// The answer number; 0 when there is no service to ask.
inline std::int32_t ShowStyledMessage(ISDKMessageService* service, const std::string& title,
                                      const std::string& text, MessageStyle style) {
    if (!service) return 0;
    return service->ShowMessage(title, text, style.kind, style.buttons, style.defaultAnswer);
}

}  // namespace qdf
