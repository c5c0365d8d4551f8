#pragma once
// Rows of text cells on A4 pages of a PDF, moving down the page and onto a new one when the page
// is full; what the self-test certificate and the flow check report are drawn with.

#include <QColor>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace qdf::wizard {

class PdfSheet {
  public:
    // Opens the file; false with the reason when it cannot be written.
    bool Open(const QString& path, const QString& title, QString* error);
    void Close();
    QPainter& Painter() { return painter_; }

    void Font(int points, bool bold);
    // Long cells wrap within their column (offsets as fractions of the width); the row is as
    // tall as its tallest cell.
    void Row(const QStringList& cells, const std::vector<double>& columns,
             const QColor& colour = Qt::black);
    void Rule();
    void Skip();
    // A block of `height` device units at the current position, on a new page if it does not
    // fit; the caller draws into the rectangle returned.
    QRect Block(int height);
    int Width() const { return width_; }
    int LineHeight() const { return line_; }

  private:
    std::unique_ptr<QPdfWriter> writer_;
    QPainter painter_;
    int width_ = 0, height_ = 0, y_ = 0, line_ = 0;
};

}  // namespace qdf::wizard
