#pragma once
// Natural gas from a full analysis, for the AGA8 detail method and the ISO 12213 molar
// composition method: the mole percentages of 21 components in a grid, a running total, scaling
// to 100 percent, and the range test of the method. Faults are written on the page, not shown
// as message boxes.

#include "ctlPage.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

class ctlNaturalGasSetupAga : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupAga(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;

    // Copies the grid to Y21 and the store's detail members, with the total to 8 decimals.
    void SetUIAgasetup();

    void cmdNext_Click();
    void cmdBack_Click() override;
    void cmdNormalize_Click();
    void cmdReset_Click();

    // Places the floating edit box over a value cell with the cell's text; any other cell
    // only closes an open edit.
    void EditCell(int row, int column);
    // Commits the cell under edit, if any, and closes the edit box.
    void CommitEdit();
    // The running sum of the analysis as the page keeps it.
    double TotalMole() const { return m_TotalMole; }

    QLabel* lblAgaDetail;
    QTableWidget* FlexDensity;
    QLineEdit* txtDataEntry;
    QLineEdit* txtTotalMole;
    QLineEdit* txtMessage;
    QPushButton* cmdNormalize;
    QPushButton* cmdReset;
    QPushButton* cmdNext;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void LoadFromStore();
    // Header, numbers and names; the values only when `withValues`.
    void FillGrid(bool withValues);
    void ShowValue(int index, const QString& text);
    void ShowTotal();
    // The rules of a committed cell: empty is 0, a text that is no number is refused and the
    // cell keeps its value, a number replaces the component in the total.
    void CommitCell(int index, const QString& text);
    void OnItemChanged(int row, int column);
    // Enter on (row, column) moves down the group, from the first group's last row to the second
    // group, and from the second group's last value back to the top.
    void EditNextCell(int row, int column);

    double m_TotalMole = 0.0;
    // The text each value cell shows, so a refused entry can put it back.
    QString shown_[21];
    int editRow_ = -1;
    int editColumn_ = -1;
    bool filling_ = false;
    bool committing_ = false;
};
