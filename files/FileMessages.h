#pragma once
// The message styles of the file commands: a notice with one button, and a question with Yes
// and No whose default is No.

#include <string>

#include "SDKMessages.h"

namespace qdf {

inline void ShowNotice(ISDKMessageService& messages, const std::string& title,
                       const std::string& text) {
    ShowStyledMessage(&messages, title, text, kStopNotice);
}

// True only on Yes.
inline bool AskYesNo(ISDKMessageService& messages, const std::string& title,
                     const std::string& text) {
    return ShowStyledMessage(&messages, title, text, kAskDefaultNo) == sdk::kMessageAnswerYes;
}

}  // namespace qdf
