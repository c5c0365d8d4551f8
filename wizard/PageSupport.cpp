#include "PageSupport.h"

#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPalette>
#include <QVBoxLayout>

#include "CodeTables.h"
#include "ModUnit.h"
#include "MvConfig.h"
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

QString NumberKeyFilter::Filtered(const QString& text, bool allowMinus) {
    QString kept;
    for (QChar c : text)
        if (Accepts(c, allowMinus)) kept.append(c);
    return kept;
}

bool NumberKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        // Only character keys are filtered; editing and navigation keys carry no printable text,
        // and shortcuts (Ctrl+V) go on to the box, whose edit filter sees what they insert.
        const bool shortcut =
            key->modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier);
        if (!shortcut && !text.isEmpty() && text.at(0).isPrint() &&
            !Accepts(text.at(0), allowMinus_))
            return true;
    }
    return QObject::eventFilter(watched, event);
}

namespace {

// Filters what arrives in one piece (paste, drop): the part between the unchanged head and
// tail of the text is the insertion, and only that part is filtered, so a value the program
// put into the box keeps its characters.
class PasteFilter : public QObject {
  public:
    PasteFilter(QLineEdit* box, bool allowMinus) : QObject(box), box_(box), minus_(allowMinus) {
        before_ = box->text();
        connect(box, &QLineEdit::textChanged, this, [this](const QString& t) {
            if (!filtering_) before_ = t;
        });
        connect(box, &QLineEdit::textEdited, this, [this](const QString& t) { Filter(t); });
    }

  private:
    void Filter(const QString& after) {
        const QString old = before_;
        qsizetype head = 0;
        while (head < old.size() && head < after.size() && old[head] == after[head]) ++head;
        qsizetype tail = 0;
        while (tail < old.size() - head && tail < after.size() - head &&
               old[old.size() - 1 - tail] == after[after.size() - 1 - tail])
            ++tail;
        const QString inserted = after.mid(head, after.size() - head - tail);
        const QString kept = NumberKeyFilter::Filtered(inserted, minus_);
        if (kept.size() == inserted.size()) {
            before_ = after;
            return;
        }
        const QString fixed = after.left(head) + kept + after.right(tail);
        filtering_ = true;
        box_->setText(fixed);
        box_->setCursorPosition(static_cast<int>(head + kept.size()));
        filtering_ = false;
        before_ = fixed;
    }

    QLineEdit* box_;
    bool minus_;
    bool filtering_ = false;
    QString before_;
};

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

std::vector<std::pair<QString, QString>> AutoSequenceSteps(int namedStep,
                                                           const QString& labelName) {
    std::vector<std::pair<QString, QString>> steps = {
        {QString(), QStringLiteral("1. Flow Configuration Mode")},
        {QString(), QStringLiteral("2. Primary Device and Pipe Setup")},
        {QString(), QStringLiteral("3. Fluid Type Setup")},
        {QString(), QStringLiteral("4. Natural Gas Setup")},
        {QString(), QStringLiteral("5. Fluid Operating Range Setup")},
        {QString(), QStringLiteral("6. Fluid Physical Property Setup")},
        {QString(), QStringLiteral("7. Apply Flow Configuration")}};
    if (namedStep >= 1 && namedStep <= 7)
        steps[static_cast<std::size_t>(namedStep - 1)].first = labelName;
    return steps;
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

qdf::NumberSeparators UserSeparators() {
    const QLocale user;
    return {user.decimalPoint().toStdString(), user.groupSeparator().toStdString()};
}

std::string UserNumberText(double value) {
    return qdf::NumToText(value, UserSeparators());
}

QLabel* Caption(QWidget* parent, const char* text) {
    return new QLabel(QString::fromUtf8(text), parent);
}

void ShowNumber(QLineEdit* box, double value) {
    box->setText(value == kNotEntered ? QString() : QString::fromStdString(UserNumberText(value)));
}

void FillList(QComboBox* box, const std::vector<std::string>& texts) {
    for (const auto& t : texts) box->addItem(QString::fromStdString(t));
}

QLineEdit* NumberBox(QWidget* parent, const char* name, bool allowMinus) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->installEventFilter(new NumberKeyFilter(allowMinus, box));
    new PasteFilter(box, allowMinus);
    return box;
}

QComboBox* UnitList(QWidget* parent, const char* name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

void FillUnitList(QComboBox* box, std::span<const UnitEntry> entries, const std::string& location) {
    box->clear();
    const bool japan = location == "Japan";
    for (const UnitEntry& e : entries)
        if (!japan || e.offeredInJapan)
            box->addItem(QString::fromUtf8(e.text.data(), static_cast<qsizetype>(e.text.size())),
                         e.code);
    box->setCurrentIndex(-1);
}

void FillDeviceUnitList(QComboBox* box, const std::vector<std::string>& texts,
                        const std::vector<std::int16_t>& codes, bool pressure,
                        const std::string& location) {
    box->clear();
    const bool japan = location == "Japan";
    // The lists are parallel; an entry without its code can't be selected or stored.
    const std::size_t n = std::min(texts.size(), codes.size());
    for (std::size_t i = 0; i < n; ++i) {
        if (japan && !qdf::DeviceUnitOfferedInJapan(codes[i], pressure)) continue;
        box->addItem(QString::fromStdString(texts[i]), static_cast<int>(codes[i]));
    }
    box->setCurrentIndex(-1);
}

void SelectUnit(QComboBox* box, std::int32_t code) {
    box->setCurrentIndex(box->findData(static_cast<int>(code)));
}

std::optional<std::int32_t> SelectedUnit(const QComboBox* box) {
    if (box->currentIndex() < 0) return std::nullopt;
    const QVariant data = box->currentData();
    if (!data.isValid()) return std::nullopt;
    return data.toInt();
}

void SelectText(QComboBox* box, const std::string& text) {
    box->setCurrentIndex(box->findText(QString::fromStdString(text), Qt::MatchExactly));
}

std::string BoxText(const QLineEdit* box) {
    return box->text().toStdString();
}

bool BoxIsNumber(const QLineEdit* box) {
    return qdf::IsNumeric(BoxText(box), UserSeparators());
}

double BoxNumber(const QLineEdit* box) {
    return qdf::ParseNumber(BoxText(box), UserSeparators()).value_or(0.0);
}

std::string LimitText(double value) {
    return qdf::NumToTextSingle(static_cast<float>(value), UserSeparators());
}

std::string RangeText(std::string_view before, double low, std::string_view between, double high,
                      std::string_view after) {
    std::string text(before);
    text += LimitText(low);
    text += between;
    text += LimitText(high);
    text += after;
    return text;
}

double KPaToPressureUnit(double kPa, std::int32_t code) {
    switch (code) {
        case 1:
        case 4:
            return qdf::KPaToBar(kPa);
        case 2:
        case 5:
            return qdf::KPaToPsi(kPa);
        default:
            return kPa;
    }
}

double KelvinToTemperatureUnit(double kelvin, std::int32_t code) {
    if (code == qdf::kHartDegC) return qdf::KToDegC(kelvin);
    if (code == qdf::kHartDegF) return qdf::KToDegF(kelvin);
    return kelvin;
}

namespace {
constexpr std::int32_t kDensityKgM3 = 92;
}  // namespace

double DensityToStandard(double value, std::int32_t unitCode) {
    return unitCode == kDensityKgM3 ? value : qdf::LbFt3ToKgM3(value);
}

double ViscosityToStandard(double value, std::int32_t unitCode) {
    return unitCode == 0 ? value : qdf::LbFtSToPaS(value);
}

void ConvertReferenceDensity(qdf::clsExGlobalVars& s) {
    if (s.UI_RefDensValue == kNotEntered) return;
    if (s.UI_DensUnit == kDensityKgM3) {
        s.UI_RefDensValueStandard = s.UI_RefDensValue;
        return;
    }
    const double converted = qdf::LbFt3ToKgM3(s.UI_RefDensValue);
    s.UI_RefDensValueStandard =
        qdf::ParseNumber(qdf::FormatNumber(converted, "###0.########")).value_or(converted);
}

bool RunRangeCalculation(
    qdf::clsExGlobalVars& s, const std::string& failureTitle,
    const std::function<void(const std::string&, const std::string&)>& notify) {
    if (qdf::RunCalculation(s) != 0) {
        notify(failureTitle,
               "There exists calculation error with the given input of pressure and temperature. "
               "Please fill out another value");
        return false;
    }
    if (s.Gbl_ErrorCode == 890 && s.Gbl_ErrorSubCode == 5) {
        notify(kTitleInformation, s.Gbl_ErrorMessage);
        s.Gbl_ErrorCode = kNotEntered;
        s.Gbl_ErrorSubCode = kNotEntered;
    } else if (s.Gbl_ErrorCode == 600 && s.Gbl_ErrorSubCode == 1) {
        s.Gbl_ErrorCode = kNotEntered;
        s.Gbl_ErrorSubCode = kNotEntered;
    }
    return true;
}

}  // namespace qdf::wizard
