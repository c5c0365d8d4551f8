#pragma once
// The flow check drawn: the colour map of the error over DP x SP at one ET, shared by the view
// and the report, and the report as a PDF (map, worst figures, sources, applicability).

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QString>
#include <cstddef>

#include "FlowCheck.h"

namespace qdf::wizard {

// Blue for flow read low, red for high, white at 0; full colour at +-scale (fractions of flow).
QColor ErrorColour(double error, double scale);

// The scale of a map: the threshold, or the worst error when that is larger.
double MapScale(const qdf::flowcheck::FlowCheckResult& r);

// DP along, SP up, one cell per grid point at ET index `et`, with axis labels and a legend
// inside `area`. Uses the painter's font.
void DrawErrorMap(QPainter& p, const QRect& area, const qdf::flowcheck::FlowCheckResult& r,
                  std::size_t et);

// False with the reason when the file cannot be written.
bool WriteFlowCheckPdf(const QString& path, const qdf::flowcheck::FlowCheckResult& r,
                       QString* error);

}  // namespace qdf::wizard
