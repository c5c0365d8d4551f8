#pragma once
// The self-test certificate: what was checked, on which copy of the program, where and when,
// and the result per standard, as a PDF a plant can file.

#include <QString>
#include <vector>

#include "SelfTest.h"

namespace qdf::wizard {

// Runs nothing: prints the given cases. False with the reason when the file cannot be written.
bool WriteSelfTestCertificate(const QString& path,
                              const std::vector<qdf::flowcheck::SelfTestCase>& cases,
                              QString* error);

// "1.2e-03" style for a deviation in units of the tolerance; "no value" when none was computed.
QString DeviationText(double deviation);

}  // namespace qdf::wizard
