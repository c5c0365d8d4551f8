#pragma once
// The general value type: what a device parameter, a property bag entry or a cell of an imported
// parameter file holds. It knows its kind, as a device parameter's type matters when written.

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace qdf {

class Value {
  public:
    enum class Kind { Empty, Bool, Int16, Int32, Float, Double, String, StringArray };

    // Provided rather than defaulted: an array of values is then built element by element, not
    // first cleared byte by byte as a defaulted constructor's value-initialisation would.
    Value() noexcept {}
    Value(bool v) : v_(v) {}
    Value(std::int16_t v) : v_(v) {}
    Value(std::int32_t v) : v_(v) {}
    Value(float v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    // A device's enumeration list arrives as an array of "code:text" strings.
    Value(std::vector<std::string> v) : v_(std::move(v)) {}

    Kind kind() const { return static_cast<Kind>(v_.index()); }
    bool isEmpty() const { return kind() == Kind::Empty; }
    bool isString() const { return kind() == Kind::String; }
    bool isNumber() const { return !isEmpty() && !isString() && kind() != Kind::StringArray; }

    // Numeric view; a bool is -1 or 0 as in the store's 16-bit form; a string or empty gives 0.
    double toDouble() const {
        switch (kind()) {
            case Kind::Bool:
                return std::get<bool>(v_) ? -1.0 : 0.0;
            case Kind::Int16:
                return std::get<std::int16_t>(v_);
            case Kind::Int32:
                return std::get<std::int32_t>(v_);
            case Kind::Float:
                return std::get<float>(v_);
            case Kind::Double:
                return std::get<double>(v_);
            default:
                return 0.0;
        }
    }
    const std::string& str() const {
        static const std::string empty;
        return isString() ? std::get<std::string>(v_) : empty;
    }

    bool isStringArray() const { return kind() == Kind::StringArray; }
    const std::vector<std::string>& strings() const {
        static const std::vector<std::string> empty;
        return isStringArray() ? std::get<std::vector<std::string>>(v_) : empty;
    }

    template <class T>
    const T* get_if() const {
        return std::get_if<T>(&v_);
    }

    friend bool operator==(const Value&, const Value&) = default;

  private:
    std::variant<std::monostate, bool, std::int16_t, std::int32_t, float, double, std::string,
                 std::vector<std::string>>
        v_;
};

}  // namespace qdf
