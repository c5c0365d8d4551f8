#pragma once
// The About view: the program's title line with its revision, a close button, and the
// self-test of the property libraries with its printable certificate.

#include <QWidget>
#include <vector>

#include "SelfTest.h"

class QLabel;
class QPushButton;
class QTableWidget;
class TVRQDFFCWMain;

class ctlAbout : public QWidget {
    Q_OBJECT
  public:
    explicit ctlAbout(QWidget* parent = nullptr);

    void Initialize(TVRQDFFCWMain* main);
    void Terminate();

    // Runs the self-test and shows a row per standard.
    void cmdSelfTest_Click();
    // Asks for a file through the dialog service and writes the certificate of the last run.
    void cmdSaveCertificate_Click();

    QLabel* lblTitle;
    QPushButton* cmdOK;
    QPushButton* cmdSelfTest;
    QPushButton* cmdSaveCertificate;
    QTableWidget* grdSelfTest;
    QLabel* lblSelfTest;

  private:
    TVRQDFFCWMain* main_ = nullptr;
    std::vector<qdf::flowcheck::SelfTestCase> cases_;
};
