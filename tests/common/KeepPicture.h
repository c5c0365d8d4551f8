#pragma once
// With QDF_GRAB_DIR set, a window test keeps a picture of what it showed, for a person to judge.
#include <QString>
#include <QWidget>
#include <cstdlib>

namespace qdf::test {

inline void KeepPicture(QWidget& widget, const QString& name) {
    if (const char* dir = std::getenv("QDF_GRAB_DIR"))
        widget.grab().save(QString::fromLocal8Bit(dir) + "/" + name + ".png");
}

}  // namespace qdf::test
