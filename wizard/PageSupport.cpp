#include "PageSupport.h"

#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QVBoxLayout>

#include "NumberText.h"
#include "clsExGlobalVars.h"

namespace qdf::wizard {

NumberKeyFilter::NumberKeyFilter(bool allowMinus, QObject* parent)
    : QObject(parent), allowMinus_(allowMinus) {}

bool NumberKeyFilter::Accepts(QChar c, bool allowMinus) {
    if (c == QChar('\b') || c == QChar(',') || c == QChar('.') || c == QChar('E') ||
        c == QChar('e'))
        return true;
    if (c >= QChar('0') && c <= QChar('9')) return true;
    return allowMinus && c == QChar('-');
}

bool NumberKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        // Only character keys are filtered; editing and navigation keys carry no printable text.
        if (!text.isEmpty() && text.at(0).isPrint() && !Accepts(text.at(0), allowMinus_))
            return true;
    }
    return QObject::eventFilter(watched, event);
}

namespace {
constexpr QRgb kBlinkGreys[] = {0x000000, 0x404040, 0x808080, 0xC0C0C0, 0xE0E0E0};
constexpr int kBlinkPhases = 8;  // down the greys and back up

void SetLabelColour(QLabel* label, QRgb rgb) {
    QPalette p = label->palette();
    p.setColor(QPalette::WindowText, QColor(rgb));
    label->setPalette(p);
}
}  // namespace

BlinkTimer::BlinkTimer(const QString& name, QLabel* label, QObject* parent)
    : QTimer(parent), label_(label) {
    setObjectName(name);
    setInterval(150);
    connect(this, &QTimer::timeout, this, &BlinkTimer::Step);
}

void BlinkTimer::Stop() {
    stop();
    phase_ = 0;
    SetLabelColour(label_, kBlinkGreys[0]);
}

void BlinkTimer::Step() {
    phase_ = (phase_ + 1) % kBlinkPhases;
    const int i = phase_ < 5 ? phase_ : kBlinkPhases - phase_;
    SetLabelColour(label_, kBlinkGreys[i]);
}

QGroupBox* SequenceFrame(QWidget* parent, const QString& name,
                         const std::vector<std::pair<QString, QString>>& steps,
                         std::vector<QLabel*>* labels) {
    auto* frame = new QGroupBox(QStringLiteral("Flow Configuration Sequence"), parent);
    frame->setObjectName(name);
    auto* layout = new QVBoxLayout(frame);
    for (const auto& [objectName, text] : steps) {
        auto* label = new QLabel(text, frame);
        if (!objectName.isEmpty()) label->setObjectName(objectName);
        layout->addWidget(label);
        if (labels) labels->push_back(label);
    }
    layout->addStretch();
    return frame;
}

std::vector<std::pair<QString, QString>> AutoSequenceSteps(const QString& lastStepName) {
    return {{QString(), QStringLiteral("1. Flow Configuration Mode")},
            {QString(), QStringLiteral("2. Primary Device and Pipe Setup")},
            {QString(), QStringLiteral("3. Fluid Type Setup")},
            {QString(), QStringLiteral("4. Natural Gas Setup")},
            {QString(), QStringLiteral("5. Fluid Operating Range Setup")},
            {QString(), QStringLiteral("6. Fluid Physical Property Setup")},
            {lastStepName, QStringLiteral("7. Apply Flow Configuration")}};
}

std::vector<std::pair<QString, QString>> BasicSequenceSteps(const QString& lastStepName) {
    return {{QString(), QStringLiteral("1. Flow Configuration Mode")},
            {QString(), QStringLiteral("2. Basic Mode setup")},
            {lastStepName, QStringLiteral("3. Apply Flow Configuration")}};
}

void ShowSequence(bool basic, QGroupBox* autoFrame, BlinkTimer* autoTimer, QGroupBox* basicFrame,
                  BlinkTimer* basicTimer) {
    (basic ? basicTimer : autoTimer)->start();
    (basic ? autoTimer : basicTimer)->Stop();
    autoFrame->setVisible(!basic);
    basicFrame->setVisible(basic);
}

void ShowNumber(QLineEdit* box, double value) {
    box->setText(value == kNotEntered ? QString() : QString::fromStdString(qdf::NumToText(value)));
}

int TempUnitIndex(std::int32_t code, const std::string& location) {
    if (location == "Japan") {
        // deg F is not offered there.
        if (code == 32) return 0;
        if (code == 35) return 1;
        return -1;
    }
    if (code == 32) return 0;
    if (code == 33) return 1;
    if (code == 35) return 2;
    return -1;
}

int PressUnitIndex(std::int32_t code, const std::string& location) {
    if (location == "Japan") {
        // psi and the other non-SI pressure units are not offered there.
        constexpr std::int32_t kShort[] = {7, 8, 11, 12, 14, 237, 241};
        for (int i = 0; i < 7; ++i)
            if (kShort[i] == code) return i;
        return -1;
    }
    if (code >= 1 && code <= 14) return code - 1;
    if (code >= 237 && code <= 241) return code - 237 + 14;
    return -1;
}

void FillList(QComboBox* box, const std::vector<std::string>& texts) {
    for (const auto& t : texts) box->addItem(QString::fromStdString(t));
}

}  // namespace qdf::wizard
