#include "PdfSheet.h"

#include <QFile>
#include <QFontMetrics>
#include <QPageSize>
#include <algorithm>

namespace qdf::wizard {

bool PdfSheet::Open(const QString& path, const QString& title, QString* error) {
    {
        QFile probe(path);
        if (!probe.open(QIODevice::WriteOnly)) {
            if (error) *error = path + ": " + probe.errorString();
            return false;
        }
    }
    writer_ = std::make_unique<QPdfWriter>(path);
    writer_->setPageSize(QPageSize(QPageSize::A4));
    writer_->setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter);
    writer_->setResolution(300);
    writer_->setTitle(title);
    writer_->setCreator(QStringLiteral("QDFSondra R") + QStringLiteral(QDF_REVISION_TEXT));
    if (!painter_.begin(writer_.get())) {
        if (error) *error = path + ": the PDF cannot be written";
        return false;
    }
    width_ = painter_.viewport().width();
    height_ = painter_.viewport().height();
    y_ = 0;
    return true;
}

void PdfSheet::Close() {
    painter_.end();
    writer_.reset();
}

void PdfSheet::Font(int points, bool bold) {
    QFont f(QStringLiteral("DejaVu Sans"), points);
    f.setBold(bold);
    painter_.setFont(f);
    line_ = QFontMetrics(f, writer_.get()).height() * 13 / 10;
}

void PdfSheet::Row(const QStringList& cells, const std::vector<double>& columns,
                   const QColor& colour) {
    std::vector<QRect> boxes;
    int height = line_;
    for (int i = 0; i < cells.size(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int x = static_cast<int>(columns[at] * width_);
        const int next = i + 1 < cells.size() ? static_cast<int>(columns[at + 1] * width_) : width_;
        const int gap = i + 1 < cells.size() ? line_ / 3 : 0;
        boxes.emplace_back(x, 0, next - x - gap, line_);
        const QRect need = painter_.boundingRect(QRect(x, 0, next - x - gap, 100 * line_),
                                                 Qt::TextWordWrap, cells[i]);
        height = std::max(height, need.height() + line_ * 3 / 10);
    }
    if (y_ + height > height_) {
        writer_->newPage();
        y_ = 0;
    }
    painter_.setPen(colour);
    for (int i = 0; i < cells.size(); ++i) {
        QRect box = boxes[static_cast<std::size_t>(i)];
        box.moveTop(y_);
        box.setHeight(height);
        painter_.drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, cells[i]);
    }
    y_ += height;
}

void PdfSheet::Rule() {
    painter_.setPen(QPen(Qt::darkGray, 0));
    painter_.drawLine(0, y_ + line_ / 4, width_, y_ + line_ / 4);
    y_ += line_ / 2;
}

void PdfSheet::Skip() {
    y_ += line_ / 2;
}

QRect PdfSheet::Block(int height) {
    if (y_ + height > height_) {
        writer_->newPage();
        y_ = 0;
    }
    const QRect r(0, y_, width_, height);
    y_ += height;
    return r;
}

}  // namespace qdf::wizard
