#pragma once
// The frame's message service: modal boxes on the desktop, or a scripted stand-in that records
// every message and answers from a queue (tests, headless runs).

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "SDKFrame.h"

class QWidget;

namespace qdf::frame {

// A QMessageBox whose icon and buttons follow the style numbers: kind 1 stop, 2 information,
// 3 question; buttons 2 OK, 5 Yes and No; the default answer picks the default button.
class QtMessageService : public ISDKMessageService {
  public:
    explicit QtMessageService(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }
    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t defaultButton) override;

  private:
    QWidget* parent_;
};

struct ShownMessage {
    std::string title;
    std::string text;
    std::int32_t kind = 0;
    std::int32_t buttons = 0;
    std::int32_t defaultButton = 0;
    std::int32_t answer = 0;
};

class ScriptedMessageService : public ISDKMessageService {
  public:
    // Answers are used in order; with none left a message gets its default answer.
    std::deque<std::int32_t> answers;
    std::vector<ShownMessage> shown;
    // Told of every message after it was answered (e.g. to print it).
    std::function<void(const ShownMessage&)> onShown;

    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t defaultButton) override;
};

}  // namespace qdf::frame
