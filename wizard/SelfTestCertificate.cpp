#include "SelfTestCertificate.h"

#include <QDateTime>
#include <QSysInfo>
#include <cmath>

#include <pwd.h>
#include <unistd.h>

#include "PdfSheet.h"

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

}  // namespace

QString DeviationText(double deviation) {
    if (std::isinf(deviation)) return QStringLiteral("no value");
    return QString::number(deviation, 'g', 3);
}

bool WriteSelfTestCertificate(const QString& path,
                              const std::vector<qdf::flowcheck::SelfTestCase>& cases,
                              QString* error) {
    PdfSheet sheet;
    if (!sheet.Open(path, QStringLiteral("QDFSondra self-test certificate"), error)) return false;
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
    sheet.Close();
    return true;
}

}  // namespace qdf::wizard
