#include "FrameMessages.h"

#include <QMessageBox>
#include <QString>

namespace qdf::frame {

using namespace qdf::sdk;

std::int32_t QtMessageService::ShowMessage(const std::string& title, const std::string& text,
                                           std::int32_t kind, std::int32_t buttons,
                                           std::int32_t defaultButton) {
    QMessageBox box(parent_);
    box.setWindowTitle(QString::fromStdString(title));
    box.setText(QString::fromStdString(text));
    switch (kind) {
        case kMessageKindError:
            box.setIcon(QMessageBox::Critical);
            break;
        case kMessageKindInformation:
            box.setIcon(QMessageBox::Information);
            break;
        case kMessageKindQuestion:
            box.setIcon(QMessageBox::Question);
            break;
        default:
            box.setIcon(QMessageBox::NoIcon);
            break;
    }
    if (buttons == kMessageButtonsYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(defaultButton == kMessageAnswerYes ? QMessageBox::Yes
                                                                : QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
    }
    const int pressed = box.exec();
    if (buttons == kMessageButtonsYesNo)
        return pressed == QMessageBox::Yes ? kMessageAnswerYes : kMessageAnswerNo;
    return kMessageAnswerOk;
}

std::int32_t ScriptedMessageService::ShowMessage(const std::string& title, const std::string& text,
                                                 std::int32_t kind, std::int32_t buttons,
                                                 std::int32_t defaultButton) {
    ShownMessage m{title, text, kind, buttons, defaultButton, defaultButton};
    if (!answers.empty()) {
        m.answer = answers.front();
        answers.pop_front();
    }
    shown.push_back(m);
    if (onShown) onShown(shown.back());
    return m.answer;
}

}  // namespace qdf::frame
