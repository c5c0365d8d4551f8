#include "FlowCheckReport.h"

#include <QDateTime>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "PdfSheet.h"

namespace qdf::wizard {

namespace {

using flowcheck::FlowCheckResult;
using flowcheck::Source;

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

QString Kpa(double pa) {
    return QString::number(pa / 1000.0, 'g', 4);
}

QColor VerdictColour(flowcheck::Verdict v) {
    return v == flowcheck::Verdict::Fail   ? QColor(180, 0, 0)
           : v == flowcheck::Verdict::Warn ? QColor(150, 90, 0)
                                           : QColor(Qt::black);
}

}  // namespace

QColor ErrorColour(double error, double scale) {
    if (!std::isfinite(error)) return QColor(160, 160, 160);
    const double t = std::clamp(std::fabs(error) / scale, 0.0, 1.0);
    const int fade = static_cast<int>(std::lround(255 * (1.0 - t)));
    return error >= 0 ? QColor(255, fade, fade) : QColor(fade, fade, 255);
}

double MapScale(const FlowCheckResult& r) {
    return std::max(r.thresholdPercent / 100.0, std::fabs(r.worstError));
}

void DrawErrorMap(QPainter& p, const QRect& area, const FlowCheckResult& r, std::size_t et) {
    const QFontMetrics fm(p.font(), p.device());
    const int line = fm.height();
    const int left = fm.horizontalAdvance(QStringLiteral("00000 ")) + line;
    const int legend = fm.horizontalAdvance(QStringLiteral("+0.0000 %")) + line;
    const QRect plot(area.left() + left, area.top() + line / 2, area.width() - left - legend - line,
                     area.height() - 3 * line);
    const std::size_t nDp = r.dpAxis.size(), nSp = r.spAxis.size();
    const double scale = MapScale(r);
    p.save();
    p.setPen(Qt::NoPen);
    for (std::size_t is = 0; is < nSp; ++is) {
        for (std::size_t id = 0; id < nDp; ++id) {
            const auto& pt = r.At(et, is, id);
            const int x0 = plot.left() + static_cast<int>(plot.width() * id / nDp);
            const int x1 = plot.left() + static_cast<int>(plot.width() * (id + 1) / nDp);
            const int y0 = plot.bottom() - static_cast<int>(plot.height() * (is + 1) / nSp);
            const int y1 = plot.bottom() - static_cast<int>(plot.height() * is / nSp);
            p.setBrush(ErrorColour(pt.ok ? pt.error : NAN, scale));
            p.drawRect(QRect(QPoint(x0, y0), QPoint(x1, y1)));
        }
    }
    // The worst point, when it lies in this map.
    const std::size_t perEt = nDp * nSp;
    if (r.worst / perEt == et) {
        const std::size_t is = (r.worst % perEt) / nDp, id = r.worst % nDp;
        const int x0 = plot.left() + static_cast<int>(plot.width() * id / nDp);
        const int x1 = plot.left() + static_cast<int>(plot.width() * (id + 1) / nDp);
        const int y0 = plot.bottom() - static_cast<int>(plot.height() * (is + 1) / nSp);
        const int y1 = plot.bottom() - static_cast<int>(plot.height() * is / nSp);
        p.setPen(QPen(Qt::black, std::max(1, line / 8)));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(QPoint(x0, y0), QPoint(x1, y1)).adjusted(1, 1, -1, -1));
    }
    p.setPen(QPen(Qt::black, 0));
    p.setBrush(Qt::NoBrush);
    p.drawRect(plot);
    // Axes: first, middle and last grid values.
    for (std::size_t id : {std::size_t{0}, nDp / 2, nDp - 1}) {
        const int x = plot.left() + static_cast<int>(plot.width() * (2 * id + 1) / (2 * nDp));
        p.drawText(QRect(x - 3 * line, plot.bottom() + 2, 6 * line, line), Qt::AlignHCenter,
                   Kpa(r.dpAxis[id]));
    }
    p.drawText(QRect(plot.left(), plot.bottom() + line + 2, plot.width(), line), Qt::AlignHCenter,
               QStringLiteral("DP, kPa"));
    for (std::size_t is : {std::size_t{0}, nSp / 2, nSp - 1}) {
        const int y = plot.bottom() - static_cast<int>(plot.height() * (2 * is + 1) / (2 * nSp));
        p.drawText(QRect(area.left(), y - line / 2, left - line / 3, line),
                   Qt::AlignRight | Qt::AlignVCenter, Kpa(r.spAxis[is]));
    }
    p.save();
    p.translate(area.left() + line / 2, plot.center().y());
    p.rotate(-90);
    p.drawText(QRect(-4 * line, -line / 2, 8 * line, line), Qt::AlignCenter,
               QStringLiteral("SP, kPa abs"));
    p.restore();
    // Legend: +scale at the top, 0 in the middle, -scale at the bottom.
    const QRect bar(plot.right() + line, plot.top(), line, plot.height());
    for (int y = 0; y < bar.height(); ++y) {
        const double e = scale * (1.0 - 2.0 * y / std::max(1, bar.height() - 1));
        p.setPen(ErrorColour(e, scale));
        p.drawLine(bar.left(), bar.top() + y, bar.right(), bar.top() + y);
    }
    p.setPen(QPen(Qt::black, 0));
    p.drawRect(bar);
    const auto label = [&](double e, int y) {
        p.drawText(QRect(bar.right() + line / 3, y - line / 2, legend, line), Qt::AlignVCenter,
                   QString::fromStdString(flowcheck::PercentText(e)));
    };
    label(scale, bar.top());
    label(0.0, bar.center().y());
    label(-scale, bar.bottom());
    p.restore();
}

bool WriteFlowCheckPdf(const QString& path, const FlowCheckResult& r, QString* error) {
    PdfSheet sheet;
    if (!sheet.Open(path, QStringLiteral("QDFSondra flow check"), error)) return false;
    sheet.Font(16, true);
    sheet.Row({QStringLiteral("QDFSondra flow check")}, {0.0});
    sheet.Font(10, false);
    sheet.Row({QStringLiteral("The transmitter's flow equation with its parameters against the "
                              "full reference calculation over the operating envelope.")},
              {0.0});
    sheet.Skip();
    const std::vector<double> info{0.0, 0.28};
    sheet.Row({"Primary device", Q(r.deviceName)}, info);
    sheet.Row({"Fluid", Q(r.fluidName)}, info);
    sheet.Row({"Envelope", QStringLiteral("DP %1 to %2 kPa, SP %3 to %4 kPa abs, %5")
                                   .arg(Kpa(r.dpAxis.front()), Kpa(r.dpAxis.back()),
                                        Kpa(r.spAxis.front()), Kpa(r.spAxis.back()),
                                        r.saturated ? QStringLiteral("ET at saturation")
                                                    : QStringLiteral("ET %1 to %2 K")
                                                          .arg(r.etAxis.front(), 0, 'g', 5)
                                                          .arg(r.etAxis.back(), 0, 'g', 5)) +
                               QStringLiteral(" (%1 points)").arg(r.points.size())},
              info);
    sheet.Row({"Date and time", QDateTime::currentDateTime().toString(Qt::ISODate)}, info);
    sheet.Skip();
    sheet.Font(12, true);
    sheet.Row({QStringLiteral("Worst error %1: %2 the threshold of %3 %")
                   .arg(Q(flowcheck::PercentText(r.worstError)),
                        r.within ? QStringLiteral("within") : QStringLiteral("ABOVE"))
                   .arg(r.thresholdPercent)},
              {0.0}, r.within ? QColor(0, 110, 0) : QColor(180, 0, 0));
    sheet.Font(10, false);
    sheet.Row({"At", Q(flowcheck::PointText(r.points[r.worst]))}, info);
    sheet.Row({"Main source", Q(flowcheck::SourceName(r.mainSource))}, info);
    sheet.Skip();

    sheet.Font(10, true);
    sheet.Row({"Source", "Largest over the envelope", "At the worst point"}, {0.0, 0.4, 0.7});
    sheet.Rule();
    sheet.Font(10, false);
    for (std::size_t k = 0; k < flowcheck::kSourceCount; ++k)
        sheet.Row({Q(flowcheck::SourceName(static_cast<Source>(k))),
                   QString::number(r.worstBySource[k] * 100.0, 'f', 4) + " %",
                   Q(flowcheck::PercentText(r.points[r.worst].parts[k]))},
                  {0.0, 0.4, 0.7});
    sheet.Skip();

    // The map at the worst point's temperature.
    const std::size_t et = r.worst / (r.dpAxis.size() * r.spAxis.size());
    sheet.Font(10, true);
    sheet.Row(
        {QStringLiteral("Error over DP x SP at ET %1 K").arg(r.points[r.worst].etK, 0, 'g', 5)},
        {0.0});
    sheet.Font(8, false);
    const QRect area = sheet.Block(sheet.Width() * 45 / 100);
    DrawErrorMap(sheet.Painter(), area.adjusted(0, 0, -sheet.Width() / 4, 0), r, et);
    sheet.Skip();

    sheet.Font(10, true);
    const std::vector<double> cols{0.0, 0.08, 0.44, 0.72};
    sheet.Row({"", "Applicability", "Limit", "Value"}, cols);
    sheet.Rule();
    sheet.Font(9, false);
    for (const auto& a : r.applicability)
        sheet.Row({flowcheck::VerdictName(a.verdict), Q(a.item), Q(a.limit), Q(a.value)}, cols,
                  VerdictColour(a.verdict));
    sheet.Close();
    return true;
}

}  // namespace qdf::wizard
