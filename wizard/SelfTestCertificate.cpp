#include "SelfTestCertificate.h"

#include <QDateTime>
#include <QFile>
#include <QFontMetrics>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSysInfo>
#include <algorithm>
#include <cmath>

#include <pwd.h>
#include <unistd.h>

namespace qdf::wizard {

namespace {

QString UserName() {
    for (const char* var : {"USER", "LOGNAME", "USERNAME"}) {
        const QString name = qEnvironmentVariable(var);
        if (!name.isEmpty()) return name;
    }
    if (const passwd* pw = getpwuid(getuid())) return QString::fromLocal8Bit(pw->pw_name);
    return QStringLiteral("unknown");
}

// Writes rows of cells at fixed column offsets, moving down the page and onto a new one when
// the page is full.
class Sheet {
  public:
    Sheet(QPdfWriter& writer, QPainter& painter) : writer_(writer), p_(painter) {
        width_ = painter.viewport().width();
        height_ = painter.viewport().height();
    }
    void Font(int points, bool bold) {
        QFont f(QStringLiteral("DejaVu Sans"), points);
        f.setBold(bold);
        p_.setFont(f);
        line_ = QFontMetrics(f, &writer_).height() * 13 / 10;
    }
    // Long cells wrap within their column; the row is as tall as its tallest cell.
    void Row(const QStringList& cells, const std::vector<double>& columns,
             const QColor& colour = Qt::black) {
        std::vector<QRect> boxes;
        int height = line_;
        for (int i = 0; i < cells.size(); ++i) {
            const auto at = static_cast<std::size_t>(i);
            const int x = static_cast<int>(columns[at] * width_);
            const int next =
                i + 1 < cells.size() ? static_cast<int>(columns[at + 1] * width_) : width_;
            const int gap = i + 1 < cells.size() ? line_ / 3 : 0;
            boxes.emplace_back(x, 0, next - x - gap, line_);
            const QRect need = p_.boundingRect(QRect(x, 0, next - x - gap, 100 * line_),
                                               Qt::TextWordWrap, cells[i]);
            height = std::max(height, need.height() + line_ * 3 / 10);
        }
        if (y_ + height > height_) {
            writer_.newPage();
            y_ = 0;
        }
        p_.setPen(colour);
        for (int i = 0; i < cells.size(); ++i) {
            QRect box = boxes[static_cast<std::size_t>(i)];
            box.moveTop(y_);
            box.setHeight(height);
            p_.drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, cells[i]);
        }
        y_ += height;
    }
    void Rule() {
        p_.setPen(QPen(Qt::darkGray, 0));
        p_.drawLine(0, y_ + line_ / 4, width_, y_ + line_ / 4);
        y_ += line_ / 2;
    }
    void Skip() { y_ += line_ / 2; }

  private:
    QPdfWriter& writer_;
    QPainter& p_;
    int width_ = 0, height_ = 0, y_ = 0, line_ = 0;
};

}  // namespace

QString DeviationText(double deviation) {
    if (std::isinf(deviation)) return QStringLiteral("no value");
    return QString::number(deviation, 'g', 3);
}

bool WriteSelfTestCertificate(const QString& path,
                              const std::vector<qdf::flowcheck::SelfTestCase>& cases,
                              QString* error) {
    {
        QFile probe(path);
        if (!probe.open(QIODevice::WriteOnly)) {
            if (error) *error = path + ": " + probe.errorString();
            return false;
        }
    }
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter);
    writer.setResolution(300);
    writer.setTitle(QStringLiteral("QDFSondra self-test certificate"));
    writer.setCreator(QStringLiteral("QDFSondra R") + QStringLiteral(QDF_REVISION_TEXT));
    QPainter painter;
    if (!painter.begin(&writer)) {
        if (error) *error = path + ": the PDF cannot be written";
        return false;
    }
    Sheet sheet(writer, painter);
    const auto lines = qdf::flowcheck::SummarizeSelfTest(cases);
    bool all = !lines.empty();
    for (const auto& l : lines) all = all && l.cases > 0 && l.passed == l.cases;

    sheet.Font(16, true);
    sheet.Row({QStringLiteral("QDFSondra self-test certificate")}, {0.0});
    sheet.Font(10, false);
    sheet.Row({QStringLiteral("The published verification values of the property standards, "
                              "recomputed by this copy of the program.")},
              {0.0});
    sheet.Skip();
    const std::vector<double> info{0.0, 0.28};
    sheet.Row({"Program", QStringLiteral("QDFSondra R") + QStringLiteral(QDF_REVISION_TEXT)}, info);
    sheet.Row(
        {"Property libraries", QStringLiteral("sndl_iapws, sndl_aga, sndl_dippr, sndl_math R") +
                                   QStringLiteral(QDF_REVISION_TEXT)},
        info);
    sheet.Row({"Build", QStringLiteral(QDF_BUILD_ID)}, info);
    sheet.Row({"Date and time", QDateTime::currentDateTime().toString(Qt::ISODate)}, info);
    sheet.Row({"Machine", QSysInfo::machineHostName() + " (" + QSysInfo::prettyProductName() +
                              ", " + QSysInfo::currentCpuArchitecture() + ")"},
              info);
    sheet.Row({"User", UserName()}, info);
    sheet.Skip();
    sheet.Font(12, true);
    sheet.Row(
        {all ? QStringLiteral("Result: every case passed") : QStringLiteral("Result: FAILED")},
        {0.0}, all ? QColor(0, 110, 0) : QColor(180, 0, 0));
    sheet.Skip();

    const std::vector<double> cols{0.0, 0.16, 0.25, 0.34, 0.5};
    sheet.Font(9, true);
    sheet.Row({"Standard", "Cases", "Passed", "Worst deviation*", "Table of published values"},
              cols);
    sheet.Rule();
    sheet.Font(9, false);
    for (const auto& l : lines) {
        const bool pass = l.cases > 0 && l.passed == l.cases;
        QString table;
        for (const auto& s : qdf::flowcheck::SelfTestSuites())
            if (l.standard == s.standard) table = s.table;
        sheet.Row({QString::fromStdString(l.standard), QString::number(l.cases),
                   QString::number(l.passed), DeviationText(l.worstDeviation), table},
                  cols, pass ? Qt::black : QColor(180, 0, 0));
    }
    sheet.Rule();
    sheet.Font(8, false);
    sheet.Row({QStringLiteral("* in units of the case's tolerance. A case passes when "
                              "|computed - published| is within its tolerance: half a unit in "
                              "the last printed digit, or the standard's own check tolerance.")},
              {0.0});
    bool failures = false;
    for (const auto& c : cases) {
        if (c.Passed()) continue;
        if (!failures) {
            sheet.Skip();
            sheet.Font(9, true);
            sheet.Row({"Failed case", "Published", "Computed", "Deviation"},
                      {0.0, 0.55, 0.7, 0.85});
            sheet.Font(8, false);
            failures = true;
        }
        sheet.Row({QString::fromStdString(c.name), QString::number(c.expected, 'g', 10),
                   QString::number(c.computed, 'g', 10), DeviationText(c.Deviation())},
                  {0.0, 0.55, 0.7, 0.85}, QColor(180, 0, 0));
    }
    painter.end();
    return true;
}

}  // namespace qdf::wizard
