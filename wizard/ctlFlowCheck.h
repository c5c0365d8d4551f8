#pragma once
// The Flow Check view, opened from the Report menu of the Apply page: the transmitter's flow
// equation with the parameters about to be written against the full reference calculation over
// the operating envelope. A colour map of the error over DP x SP at a chosen ET, the worst
// figures, the error by source, the applicability list, and the check saved as a PDF.

#include <QWidget>
#include <optional>

#include "FlowCheck.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace qdf {
class clsExGlobalVars;
}

// Paints the error map of one ET of the result.
class FlowCheckMap : public QWidget {
    Q_OBJECT
  public:
    explicit FlowCheckMap(QWidget* parent = nullptr);
    void Show(const qdf::flowcheck::FlowCheckResult* result, std::size_t et);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    const qdf::flowcheck::FlowCheckResult* result_ = nullptr;
    std::size_t et_ = 0;
};

class ctlFlowCheck : public QWidget {
    Q_OBJECT
  public:
    explicit ctlFlowCheck(QWidget* parent = nullptr);

    // Checks the store's Xmtr_ set as Apply would write it and shows the result.
    void Run(const qdf::clsExGlobalVars& store);
    // Checks a set a device holds instead, against the store's configuration; Check reruns it.
    // The store must outlive the view.
    void RunWithParameters(const qdf::clsExGlobalVars& store,
                           const qdf::flowcheck::DeviceParameters& params);
    // Runs again with the DP range and threshold in the boxes.
    void cmdCheck_Click();
    // Asks for a file through the dialog service and writes the check as a PDF.
    void cmdSavePdf_Click();
    void cboET_Click();
    const std::optional<qdf::flowcheck::FlowCheckResult>& Result() const { return result_; }

    QLabel* lblTitle;
    QLineEdit* txtDpMax;
    QComboBox* cboDpUnit;
    QLineEdit* txtThreshold;
    QPushButton* cmdCheck;
    QComboBox* cboET;
    FlowCheckMap* picMap;
    QLabel* lblWorst;
    QLabel* lblVerdict;
    QTableWidget* grdSources;
    QTableWidget* grdApplicability;
    QPushButton* cmdSavePdf;
    QPushButton* cmdClose;

  private:
    void Show();
    const qdf::clsExGlobalVars* store_ = nullptr;
    std::optional<qdf::flowcheck::DeviceParameters> params_;  // none: the store's Xmtr_ set
    std::optional<qdf::flowcheck::FlowCheckResult> result_;
};
