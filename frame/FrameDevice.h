#pragma once
// One device's offline data as the frame holds it: parameters with their type, value and
// enumeration entries, the parameter groups ("menus"), what modules wrote, and the bytes of
// each module's business object.

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Value.h"

namespace qdf::frame {

struct FrameParameter {
    std::string name;
    std::string label;
    std::string type;  // "int16", "int32", "float", "double", "string"
    qdf::Value value;
    std::vector<std::string> enumeration;  // "code:text" entries, empty when none
};

struct FrameWrite {
    std::string menu;
    std::string parameter;
    qdf::Value value;  // as the module sent it, type included
};

class FrameDevice {
  public:
    // Reads the device description form of data/devices/*.json (also the form inside a project
    // file). Returns nothing and sets error on a malformed description: `place`, then where in
    // the description ("parameters[3] (ref_sp).type") and what is wrong there.
    static std::optional<FrameDevice> FromJson(const QJsonObject& json, QString* error,
                                               const QString& place = {});
    // A description file's bytes; errors begin with the file's name and the place (a line and
    // column for broken JSON).
    static std::optional<FrameDevice> FromBytes(const QByteArray& bytes, const QString& fileName,
                                                QString* error);
    static std::optional<FrameDevice> Load(const QString& path, QString* error);
    QJsonObject ToJson() const;

    const std::string& Name() const { return name_; }
    const std::string& Bus() const { return bus_; }
    const std::vector<FrameParameter>& Parameters() const { return params_; }
    const std::vector<std::pair<std::string, std::vector<std::string>>>& Menus() const {
        return menus_;
    }

    const FrameParameter* Find(const std::string& name) const;
    bool IsMenu(const std::string& name) const;
    // Menus that hold the parameter, comma-separated, for display.
    std::string MenusOf(const std::string& parameter) const;

    // Sets the offline value, converted to the parameter's type, and tells the listeners.
    // False for an unknown parameter or a value that does not convert.
    bool SetValue(const std::string& name, const qdf::Value& value);

    // Listeners are told the name of every parameter whose value was set.
    int AddListener(std::function<void(const std::string&)> listener);
    void RemoveListener(int id);

    std::vector<FrameWrite> writes;
    std::map<std::string, std::vector<std::uint8_t>> businessObjects;

  private:
    std::string name_;
    std::string bus_;
    int revision_ = 1;
    std::vector<FrameParameter> params_;
    std::vector<std::pair<std::string, std::vector<std::string>>> menus_;
    std::map<int, std::function<void(const std::string&)>> listeners_;
    int nextListener_ = 1;
};

// "line L, column C" of a byte offset into a JSON text, for messages.
QString JsonPlace(const QByteArray& bytes, int offset);

// The value in the given device type; nothing when it does not convert.
std::optional<qdf::Value> ConvertToType(const qdf::Value& value, const std::string& type);

// Display and print form: the type name, a blank and the value (numbers shortest exact form).
std::string DescribeValue(const qdf::Value& value);
// Just the value text.
std::string ValueText(const qdf::Value& value);

}  // namespace qdf::frame
