#pragma once
// Physical property setup: the density and viscosity tables the calculation made over the
// operating range, the reference density, the isentropic exponent and the molecular weight.
// A fluid from a custom data table is entered here, in the grids' cells through a floating
// edit box. Next fits the tables and goes on to the Apply page.

#include <QString>
#include <cstdint>

#include "ctlPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

class ctlPhysicalPropertySetup : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlPhysicalPropertySetup(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;
    void cboDataPoint_Click();

    // Where a committed cell goes in the store; None: the cell takes no commit.
    enum class CellTarget { None, Pressure, Density, Viscosity };
    // The store table that row `row` (1 = first below the heading), column `column` of the
    // density grid writes for a fluid of this type and category.
    static CellTarget DensityCellTarget(std::int32_t fluidType, std::int32_t fluidCat, int row,
                                        int column);

    QLabel* lblPhysicalPropertyCategory;
    QLabel* lblPhysicalPropertyName;
    QTableWidget* FlexDensity;
    QComboBox* cboDensUnit;
    QComboBox* cboTempUnit;
    QLabel* lblTempUnit;
    QComboBox* cboDataPoint;
    QLabel* LblDataPoint;
    QTableWidget* FlexViscosity;
    QComboBox* cboVisUnit;
    QLineEdit* txtRefDensity;
    QLabel* lblRefDens;
    QLineEdit* txtIsenExp;
    QLineEdit* txtMolWeight;
    QLineEdit* txtDataEntry;
    QLineEdit* txtDataEntryVis;
    QPushButton* cmdNext;

    int dataPointCount = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Fill();
    void FillUnitLists();
    void ShowReferenceDensity();
    void ShowIsentropicExponent();
    void ShowMolecularWeight();
    void BuildDensityGrid();
    void BuildViscosityGrid();
    void HideEditBoxes();

    bool SaturatedSteam() const;
    bool GasGrid() const;
    bool CustomTables() const;
    int ViscosityRowCount() const;
    // The temperature unit the grids show: the list's, or the range's for saturated steam.
    std::int32_t GridTemperatureUnit() const;
    QString DensityCellText(int row, int column) const;
    QString ViscosityCellText(int row) const;
    QString TemperatureHeading(bool viscosityGrid) const;

    CellTarget TargetOf(const QTableWidget* grid, int row, int column) const;
    QLineEdit* EditBoxOf(const QTableWidget* grid) const;
    // Opens the grid's edit box over the cell with `text`; nothing on a cell without commit.
    void OpenEditBox(QTableWidget* grid, int row, int column, const QString& text);
    void CloseEditBox(QLineEdit* box);
    // Leaving the open box for another cell or control keeps a number quietly and drops
    // anything else.
    void LeaveEditBox();
    // Writes the text to the cell and the store; a text that is no number is refused and
    // false returned. `quiet` drops a bad text without a word.
    bool Commit(QTableWidget* grid, int row, int column, const QString& text, bool quiet = false);
    // Commits the open box and moves by (dRow, dColumn) within the grid, reopening the box
    // there when that cell takes entries.
    void CommitAndMove(QLineEdit* box, int dRow, int dColumn);
    // A cell changed from outside the edit box (a script): committed by the same rules, or put
    // back as the store has it.
    void CellChanged(QTableWidget* grid, int row, int column);

    void DensityUnitChanged();
    void TemperatureUnitChanged();
    void ViscosityUnitChanged();

    // The texts the value boxes were given, so a box left as shown keeps the store's unrounded
    // value on Next rather than its eight-place text.
    QString refDensShown_;
    QString isenExpShown_;
    bool filling_ = false;
    int editRow_ = -1;
    int editColumn_ = -1;
};
