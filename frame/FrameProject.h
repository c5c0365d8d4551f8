#pragma once
// The frame's project file: every device's offline data and its modules' business object
// bytes, as one JSON document.

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include "FrameDevice.h"

namespace qdf::frame {

QByteArray ProjectFileBytes(const std::vector<const FrameDevice*>& devices);

// The devices of a project file's bytes. A broken file gives nothing and an error that names
// the file and the place ("plant.qdfproject: devices[1].bus: ..." or a line and column).
std::optional<std::vector<FrameDevice>> ReadProjectFile(const QByteArray& bytes,
                                                        const QString& fileName, QString* error);

}  // namespace qdf::frame
