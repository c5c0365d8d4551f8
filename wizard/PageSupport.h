#pragma once
// Helpers the pages share: message titles and styles, the number box key filter, the blinking
// step label, sequence frames, number display and unit selection by location.

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <string>
#include <vector>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace qdf::wizard {

inline constexpr const char* kTitleError = "QDF300 Error";
inline constexpr const char* kTitleWarning = "QDF300 Warning";
inline constexpr const char* kTitleInformation = "QDF300 Information";
inline constexpr const char* kTitleWizard = "QDF300 Flow Configuration Wizard";

// Drops typed characters a number box does not take. Backspace, comma, full stop, digits,
// "E" and "e" always stand; the minus sign only when allowMinus is set (the Auto Compensation
// pages take it, the Basic setup page does not). Keys without text (arrows, Delete) pass.
class NumberKeyFilter : public QObject {
    Q_OBJECT
  public:
    NumberKeyFilter(bool allowMinus, QObject* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;
    static bool Accepts(QChar c, bool allowMinus);

  private:
    bool allowMinus_;
};

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
std::vector<std::pair<QString, QString>> AutoSequenceSteps(const QString& lastStepName);
std::vector<std::pair<QString, QString>> BasicSequenceSteps(const QString& lastStepName);
// Shows the frame of the chosen sequence, hides the other, and blinks only the one shown.
void ShowSequence(bool basic, QGroupBox* autoFrame, BlinkTimer* autoTimer, QGroupBox* basicFrame,
                  BlinkTimer* basicTimer);

// -999999 shows as an empty box; any other value in the plain number form.
void ShowNumber(QLineEdit* box, double value);

// Index of the unit list entry for a device code under the location rule; -1 selects nothing.
int TempUnitIndex(std::int32_t code, const std::string& location);
int PressUnitIndex(std::int32_t code, const std::string& location);

// Fills a list from texts, keeping it empty when there are none.
void FillList(QComboBox* box, const std::vector<std::string>& texts);

}  // namespace qdf::wizard
