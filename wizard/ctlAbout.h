#pragma once
// The About view: the program's title line with its revision, and a close button.

#include <QWidget>

class QLabel;
class QPushButton;
class TVRQDFFCWMain;

class ctlAbout : public QWidget {
    Q_OBJECT
  public:
    explicit ctlAbout(QWidget* parent = nullptr);

    void Initialize(TVRQDFFCWMain* main);
    void Terminate();

    QLabel* lblTitle;
    QPushButton* cmdOK;

  private:
    TVRQDFFCWMain* main_ = nullptr;
};
