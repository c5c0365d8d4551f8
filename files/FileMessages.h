#pragma once
// The message styles of the file commands: a notice with one button, and a question with Yes
// and No whose default is No.

#include <string>

#include "SDKFrame.h"

namespace qdf {

inline constexpr const char* kTitleError = "QDF300 Error";
inline constexpr const char* kTitleWarning = "QDF300 Warning";

inline void ShowNotice(ISDKMessageService& messages, const std::string& title,
                       const std::string& text) {
    messages.ShowMessage(title, text, sdk::kMessageKindError, sdk::kMessageButtonsOk,
                         sdk::kMessageAnswerOk);
}

// True only on Yes.
inline bool AskYesNo(ISDKMessageService& messages, const std::string& title,
                     const std::string& text) {
    return messages.ShowMessage(title, text, sdk::kMessageKindQuestion, sdk::kMessageButtonsYesNo,
                                sdk::kMessageAnswerNo) == sdk::kMessageAnswerYes;
}

}  // namespace qdf
