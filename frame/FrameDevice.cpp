#include "FrameDevice.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <charconv>
#include <cmath>
#include <limits>

namespace qdf::frame {

namespace {

bool KnownType(const std::string& t) {
    return t == "int16" || t == "int32" || t == "float" || t == "double" || t == "string";
}

std::optional<qdf::Value> FromJsonValue(const QJsonValue& v, const std::string& type) {
    if (type == "string") {
        if (!v.isString()) return std::nullopt;
        return qdf::Value(v.toString().toStdString());
    }
    if (!v.isDouble()) return std::nullopt;
    return ConvertToType(qdf::Value(v.toDouble()), type);
}

QJsonValue ToJsonValue(const qdf::Value& v) {
    if (v.isString()) return QString::fromStdString(v.str());
    if (v.isNumber()) return v.toDouble();
    return QJsonValue();
}

std::string NumberText(double d) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, d);
    return std::string(buf, r.ptr);
}

}  // namespace

std::optional<qdf::Value> ConvertToType(const qdf::Value& value, const std::string& type) {
    if (type == "string") {
        if (value.isString()) return value;
        if (value.isNumber()) return qdf::Value(ValueText(value));
        return std::nullopt;
    }
    if (!value.isNumber()) return std::nullopt;
    const double d = value.toDouble();
    if (type == "double") return qdf::Value(d);
    if (type == "float") return qdf::Value(static_cast<float>(d));
    if (!std::isfinite(d)) return std::nullopt;
    const double r = std::nearbyint(d);
    if (type == "int16") {
        if (r < std::numeric_limits<std::int16_t>::min() ||
            r > std::numeric_limits<std::int16_t>::max())
            return std::nullopt;
        return qdf::Value(static_cast<std::int16_t>(r));
    }
    if (type == "int32") {
        if (r < std::numeric_limits<std::int32_t>::min() ||
            r > std::numeric_limits<std::int32_t>::max())
            return std::nullopt;
        return qdf::Value(static_cast<std::int32_t>(r));
    }
    return std::nullopt;
}

std::string ValueText(const qdf::Value& v) {
    switch (v.kind()) {
        case qdf::Value::Kind::Empty:
            return "";
        case qdf::Value::Kind::Bool:
            return v.toDouble() != 0 ? "true" : "false";
        case qdf::Value::Kind::Int16:
        case qdf::Value::Kind::Int32:
            return std::to_string(static_cast<long long>(v.toDouble()));
        case qdf::Value::Kind::Float:
            return NumberText(static_cast<double>(*v.get_if<float>()));
        case qdf::Value::Kind::Double:
            return NumberText(v.toDouble());
        case qdf::Value::Kind::String:
            return v.str();
        case qdf::Value::Kind::StringArray: {
            std::string s;
            for (const auto& e : v.strings()) s += (s.empty() ? "" : ", ") + e;
            return s;
        }
    }
    return "";
}

std::string DescribeValue(const qdf::Value& v) {
    static const char* const kNames[] = {"empty", "bool",   "int16",  "int32",
                                         "float", "double", "string", "strings"};
    std::string text = ValueText(v);
    if (v.isString()) text = "\"" + text + "\"";
    return std::string(kNames[static_cast<int>(v.kind())]) + " " + text;
}

std::optional<FrameDevice> FrameDevice::FromJson(const QJsonObject& json, QString* error) {
    auto fail = [&](const QString& why) -> std::optional<FrameDevice> {
        if (error) *error = why;
        return std::nullopt;
    };
    FrameDevice d;
    d.name_ = json.value("device").toString().toStdString();
    d.bus_ = json.value("bus").toString().toStdString();
    d.revision_ = json.value("revision").toInt(1);
    if (d.bus_ != "HART" && d.bus_ != "FFH1") return fail("bus must be \"HART\" or \"FFH1\"");
    const QJsonArray params = json.value("parameters").toArray();
    for (const QJsonValue& pv : params) {
        const QJsonObject p = pv.toObject();
        FrameParameter fp;
        fp.name = p.value("name").toString().toStdString();
        fp.label = p.value("label").toString().toStdString();
        fp.type = p.value("type").toString().toStdString();
        if (fp.name.empty()) return fail("a parameter without a name");
        if (!KnownType(fp.type))
            return fail(QString("parameter %1: unknown type").arg(fp.name.c_str()));
        if (d.Find(fp.name)) return fail(QString("parameter %1 twice").arg(fp.name.c_str()));
        auto value = FromJsonValue(p.value("value"), fp.type);
        if (!value) return fail(QString("parameter %1: bad value").arg(fp.name.c_str()));
        fp.value = *value;
        for (const QJsonValue& e : p.value("enumeration").toArray())
            fp.enumeration.push_back(e.toString().toStdString());
        d.params_.push_back(std::move(fp));
    }
    const QJsonObject menus = json.value("menus").toObject();
    for (auto it = menus.begin(); it != menus.end(); ++it) {
        std::vector<std::string> members;
        for (const QJsonValue& m : it.value().toArray()) {
            std::string name = m.toString().toStdString();
            if (!d.Find(name))
                return fail(QString("menu %1 names unknown parameter %2")
                                .arg(it.key(), QString::fromStdString(name)));
            members.push_back(std::move(name));
        }
        d.menus_.emplace_back(it.key().toStdString(), std::move(members));
    }
    const QJsonObject bos = json.value("businessObjects").toObject();
    for (auto it = bos.begin(); it != bos.end(); ++it) {
        const QByteArray bytes = QByteArray::fromBase64(it.value().toString().toLatin1());
        d.businessObjects[it.key().toStdString()] =
            std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    }
    return d;
}

std::optional<FrameDevice> FrameDevice::Load(const QString& path, QString* error) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error) *error = QString("cannot open %1").arg(path);
        return std::nullopt;
    }
    QJsonParseError pe;
    const QJsonDocument doc = QJsonDocument::fromJson(f.readAll(), &pe);
    if (!doc.isObject()) {
        if (error) *error = QString("%1: %2").arg(path, pe.errorString());
        return std::nullopt;
    }
    return FromJson(doc.object(), error);
}

QJsonObject FrameDevice::ToJson() const {
    QJsonObject json;
    json["device"] = QString::fromStdString(name_);
    json["bus"] = QString::fromStdString(bus_);
    json["revision"] = revision_;
    QJsonObject menus;
    for (const auto& [menu, members] : menus_) {
        QJsonArray a;
        for (const auto& m : members) a.append(QString::fromStdString(m));
        menus[QString::fromStdString(menu)] = a;
    }
    json["menus"] = menus;
    QJsonArray params;
    for (const auto& p : params_) {
        QJsonObject o;
        o["name"] = QString::fromStdString(p.name);
        o["type"] = QString::fromStdString(p.type);
        o["value"] = ToJsonValue(p.value);
        if (!p.label.empty()) o["label"] = QString::fromStdString(p.label);
        if (!p.enumeration.empty()) {
            QJsonArray e;
            for (const auto& s : p.enumeration) e.append(QString::fromStdString(s));
            o["enumeration"] = e;
        }
        params.append(o);
    }
    json["parameters"] = params;
    if (!businessObjects.empty()) {
        QJsonObject bos;
        for (const auto& [key, bytes] : businessObjects) {
            const QByteArray b(reinterpret_cast<const char*>(bytes.data()),
                               static_cast<qsizetype>(bytes.size()));
            bos[QString::fromStdString(key)] = QString::fromLatin1(b.toBase64());
        }
        json["businessObjects"] = bos;
    }
    return json;
}

const FrameParameter* FrameDevice::Find(const std::string& name) const {
    for (const auto& p : params_)
        if (p.name == name) return &p;
    return nullptr;
}

bool FrameDevice::IsMenu(const std::string& name) const {
    for (const auto& m : menus_)
        if (m.first == name) return true;
    return false;
}

std::string FrameDevice::MenusOf(const std::string& parameter) const {
    std::string out;
    for (const auto& [menu, members] : menus_) {
        for (const auto& m : members) {
            if (m == parameter) {
                out += (out.empty() ? "" : ", ") + menu;
                break;
            }
        }
    }
    return out;
}

bool FrameDevice::SetValue(const std::string& name, const qdf::Value& value) {
    for (auto& p : params_) {
        if (p.name != name) continue;
        auto converted = ConvertToType(value, p.type);
        if (!converted) return false;
        p.value = *converted;
        // Copy first: a listener may remove itself or others while being told.
        auto listeners = listeners_;
        for (auto& [id, fn] : listeners)
            if (listeners_.count(id)) fn(name);
        return true;
    }
    return false;
}

int FrameDevice::AddListener(std::function<void(const std::string&)> listener) {
    listeners_[nextListener_] = std::move(listener);
    return nextListener_++;
}

void FrameDevice::RemoveListener(int id) {
    listeners_.erase(id);
}

}  // namespace qdf::frame
