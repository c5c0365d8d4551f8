#pragma once
// Helpers the pages share: the number box with its key and paste filter, the blinking step
// label, sequence frames, number display, unit lists keyed by code and filtered by location,
// and the wording of range questions.

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NumberText.h"
#include "SDKMessages.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::wizard {

using qdf::kTitleError;
using qdf::kTitleInformation;
using qdf::kTitleWarning;
using qdf::kTitleWizard;

// Drops typed characters a number box does not take. Backspace, comma, full stop, digits,
// "E" and "e" always stand; the minus sign only when allowMinus is set (the Auto Compensation
// pages take it, the Basic setup page does not). Keys without text (arrows, Delete) pass.
class NumberKeyFilter : public QObject {
    Q_OBJECT
  public:
    NumberKeyFilter(bool allowMinus, QObject* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;
    static bool Accepts(QChar c, bool allowMinus);
    // The text with every character the filter would drop taken out.
    static QString Filtered(const QString& text, bool allowMinus);

  private:
    bool allowMinus_;
};

// A number box: typed keys go through NumberKeyFilter, and text that arrives in one piece
// (paste, the context menu, drop) is filtered character by character by the same rule. Text
// set by the program is shown as it stands.
QLineEdit* NumberBox(QWidget* parent, const char* name, bool allowMinus = true);

// Steps the text colour of the current step's label through greys and back, a cue to the
// user only: no rule depends on it.
class BlinkTimer : public QTimer {
    Q_OBJECT
  public:
    BlinkTimer(const QString& name, QLabel* label, QObject* parent);
    // Back to black, so a stopped label reads normally.
    void Stop();

  private:
    void Step();
    QLabel* label_;
    int phase_ = 0;
};

// A frame "Flow Configuration Sequence" with one label per step; the labels are returned in
// order and named by the given object names (empty: unnamed).
QGroupBox* SequenceFrame(QWidget* parent, const QString& name,
                         const std::vector<std::pair<QString, QString>>& steps,
                         std::vector<QLabel*>* labels);
// The seven steps; the label of step `namedStep` (1 to 7) gets `labelName`.
std::vector<std::pair<QString, QString>> AutoSequenceSteps(int namedStep, const QString& labelName);
std::vector<std::pair<QString, QString>> BasicSequenceSteps(const QString& lastStepName);
// Shows the frame of the chosen sequence, hides the other, and blinks only the one shown.
void ShowSequence(bool basic, QGroupBox* autoFrame, BlinkTimer* autoTimer, QGroupBox* basicFrame,
                  BlinkTimer* basicTimer);

// The user's decimal and grouping separators (Qt's default locale, which is the system's
// unless a test sets another). Pages read and show numbers with them; files never do.
qdf::NumberSeparators UserSeparators();
// The plain number form with the user's decimal separator, for boxes and messages.
std::string UserNumberText(double value);

// A plain caption label.
QLabel* Caption(QWidget* parent, const char* text);

// Runs a table routine under the numeric failure path: 0, or 1 when it stopped on an exception
// (a division by zero caught by the checked arithmetic, an index out of bounds).
template <class Body>
std::int32_t Guarded(Body body) {
    try {
        body();
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

// -999999 shows as an empty box; any other value in the plain number form.
void ShowNumber(QLineEdit* box, double value);

// ---- Unit lists ----
//
// A unit list keeps the store code of each entry as its item data, so a page selects and
// reads back codes and never positions. With location "Japan" inch, deg F, psi and BTU/ft3
// are not offered; a stored code that is not offered shows as no selection.

struct UnitEntry {
    std::int32_t code;
    std::string_view text;
    bool offeredInJapan = true;
};

// The wizard's own unit lists, as the pages show them.
inline constexpr UnitEntry kTemperatureUnitList[] = {
    {32, "deg C"}, {33, "deg F", false}, {35, "Kelvin"}};
inline constexpr UnitEntry kDiameterUnitList[] = {{49, "mm"}, {47, "in", false}};
inline constexpr UnitEntry kProcessPressureUnitList[] = {
    {0, "kPa abs"},   {1, "bar abs"},   {2, "psi abs", false},
    {3, "kPa gauge"}, {4, "bar gauge"}, {5, "psi gauge", false}};
inline constexpr UnitEntry kAbsolutePressureUnitList[] = {
    {0, "kPa abs"}, {1, "bar abs"}, {2, "psi abs", false}};
inline constexpr UnitEntry kHeatingValueUnitList[] = {{0, "MJ/m3"}, {1, "BTU/ft3", false}};
inline constexpr UnitEntry kDensityUnitList[] = {{92, "kg/m3"}, {94, "lb/ft3", false}};
inline constexpr UnitEntry kViscosityUnitList[] = {{0, "Pa sec"}, {1, "lb/ft sec", false}};

QComboBox* UnitList(QWidget* parent, const char* name);
// Empties the list and fills it with the entries the location offers.
void FillUnitList(QComboBox* box, std::span<const UnitEntry> entries, const std::string& location);
// Fills a list from the device's unit texts and codes (parallel lists, as the store keeps
// them). "Japan" offers the device's units that its short table holds; a missing list stays
// empty.
void FillDeviceUnitList(QComboBox* box, const std::vector<std::string>& texts,
                        const std::vector<std::int16_t>& codes, bool pressure,
                        const std::string& location);
// Selects the entry of a code; a code the list does not hold selects nothing.
void SelectUnit(QComboBox* box, std::int32_t code);
// The code of the selected entry, or nothing without a selection.
std::optional<std::int32_t> SelectedUnit(const QComboBox* box);

// Fills a list from texts, keeping it empty when there are none.
void FillList(QComboBox* box, const std::vector<std::string>& texts);
// Selects the entry with exactly this text; an unknown text selects nothing.
void SelectText(QComboBox* box, const std::string& text);

// ---- Number boxes on Next ----

// The text of a box as the user sees it.
std::string BoxText(const QLineEdit* box);
// True when the box holds a number by the general numeric test, under the user's separators.
bool BoxIsNumber(const QLineEdit* box);
// The number in a box that passed BoxIsNumber.
double BoxNumber(const QLineEdit* box);

// ---- Range questions ----

// A range limit as the messages print it: narrowed to single precision, then in the plain
// number form.
std::string LimitText(double value);
// before + limit + between + limit + after, each limit by LimitText.
std::string RangeText(std::string_view before, double low, std::string_view between, double high,
                      std::string_view after);
// A limit in kPa in the unit of a process pressure code (bar: /100, psi: /6.894757; gauge
// codes as their absolute twins).
double KPaToPressureUnit(double kPa, std::int32_t code);
// A limit in Kelvin in the unit of a temperature code (32 deg C, 33 deg F; any other Kelvin).
double KelvinToTemperatureUnit(double kelvin, std::int32_t code);

// ---- Custom tables ----

// A density as entered in kg/m3: code 92 (kg/m3) as it stands, any other from lb/ft3.
double DensityToStandard(double value, std::int32_t unitCode);
// A viscosity as entered in Pa s: code 0 (Pa sec) as it stands, any other from lb/(ft s).
double ViscosityToStandard(double value, std::int32_t unitCode);
// UI_RefDensValueStandard from UI_RefDensValue by UI_DensUnit; a converted value is rounded by
// "###0.########". A reference density never entered is left alone.
void ConvertReferenceDensity(qdf::clsExGlobalVars& s);

// ---- The calculation of the range pages ----

// Runs the calculation driver and settles its outcome as the range pages do. A failure shows
// "There exists calculation error ..." under `failureTitle` and gives false: the page stays.
// A success that met a two-phase point shows the driver's message under "QDF300 Information";
// that warning and a library report of sub-code 1 are then cleared. `notify` shows a notice
// (title, text).
bool RunRangeCalculation(qdf::clsExGlobalVars& s, const std::string& failureTitle,
                         const std::function<void(const std::string&, const std::string&)>& notify);

}  // namespace qdf::wizard
