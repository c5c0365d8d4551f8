#pragma once
// Arrays of the store. Every element access is checked: an index outside the bounds throws
// std::out_of_range and nothing is clipped, so a calculation stage that runs off a table fails
// instead of reading a neighbour's data.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace qdf {

[[noreturn]] inline void ThrowIndexOutOfRange(std::int64_t index, std::int64_t upper) {
    throw std::out_of_range("index " + std::to_string(index) + " outside 0 to " +
                            std::to_string(upper));
}

// Whole-array set: walks the target's own bounds, so a shorter source fails at its end (after
// the elements it has were copied) and a longer one is cut.
template <class Elements, class T>
void AssignWithinBounds(Elements& target, std::span<const T> src) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (i >= src.size())
            ThrowIndexOutOfRange(static_cast<std::int64_t>(i),
                                 static_cast<std::int64_t>(src.size()) - 1);
        target[i] = src[i];
    }
}

// Fixed bounds 0 to N-1.
template <class T, std::size_t N>
class BoundedArray {
  public:
    using value_type = T;
    static constexpr std::int32_t kUpper = static_cast<std::int32_t>(N) - 1;

    BoundedArray() : v_{} {}

    T& at(std::int64_t i) { return v_[check(i)]; }
    const T& at(std::int64_t i) const { return v_[check(i)]; }
    T& operator[](std::int64_t i) { return at(i); }
    const T& operator[](std::int64_t i) const { return at(i); }

    static constexpr std::int32_t upper() { return kUpper; }
    static constexpr std::size_t size() { return N; }
    void fill(const T& value) { v_.fill(value); }

    // Whole-array get: a copy.
    std::vector<T> copy() const { return std::vector<T>(v_.begin(), v_.end()); }
    void assign(std::span<const T> src) { AssignWithinBounds(v_, src); }

    auto begin() const { return v_.begin(); }
    auto end() const { return v_.end(); }
    const T* data() const { return v_.data(); }
    T* data() { return v_.data(); }

    friend bool operator==(const BoundedArray&, const BoundedArray&) = default;

  private:
    static std::size_t check(std::int64_t i) {
        if (i < 0 || i > kUpper) ThrowIndexOutOfRange(i, kUpper);
        return static_cast<std::size_t>(i);
    }
    std::array<T, N> v_;
};

// Bounds 0 to upper, set at run time; redimensioning drops the old contents.
template <class T>
class DynArray {
  public:
    using value_type = T;

    DynArray() : v_(1) {}

    void ReDim(std::int32_t upper) {
        if (upper < -1) ThrowIndexOutOfRange(upper, -1);
        v_.assign(static_cast<std::size_t>(upper + 1), T{});
    }
    std::int32_t upper() const { return static_cast<std::int32_t>(v_.size()) - 1; }
    std::size_t size() const { return v_.size(); }

    T& at(std::int64_t i) { return v_[check(i)]; }
    const T& at(std::int64_t i) const { return v_[check(i)]; }
    T& operator[](std::int64_t i) { return at(i); }
    const T& operator[](std::int64_t i) const { return at(i); }

    std::vector<T> copy() const { return v_; }
    void assign(std::span<const T> src) { AssignWithinBounds(v_, src); }

    auto begin() const { return v_.begin(); }
    auto end() const { return v_.end(); }

    friend bool operator==(const DynArray&, const DynArray&) = default;

  private:
    std::size_t check(std::int64_t i) const {
        if (i < 0 || i > upper()) ThrowIndexOutOfRange(i, upper());
        return static_cast<std::size_t>(i);
    }
    std::vector<T> v_;
};

// Two-dimensional, bounds (0 to upper1, 0 to upper2), set at run time.
template <class T>
class DynArray2D {
  public:
    using value_type = T;

    DynArray2D() : n1_(1), n2_(1), v_(1) {}

    void ReDim(std::int32_t upper1, std::int32_t upper2) {
        if (upper1 < -1) ThrowIndexOutOfRange(upper1, -1);
        if (upper2 < -1) ThrowIndexOutOfRange(upper2, -1);
        n1_ = static_cast<std::size_t>(upper1 + 1);
        n2_ = static_cast<std::size_t>(upper2 + 1);
        v_.assign(n1_ * n2_, T{});
    }
    // dim is 1 or 2.
    std::int32_t upper(int dim) const {
        return static_cast<std::int32_t>(dim == 1 ? n1_ : n2_) - 1;
    }

    T& at(std::int64_t i, std::int64_t j) { return v_[check(i, j)]; }
    const T& at(std::int64_t i, std::int64_t j) const { return v_[check(i, j)]; }
    T& operator()(std::int64_t i, std::int64_t j) { return at(i, j); }
    const T& operator()(std::int64_t i, std::int64_t j) const { return at(i, j); }

    // Copy over this array's own bounds; the source must cover them.
    void assign(const DynArray2D& src) {
        for (std::size_t i = 0; i < n1_; ++i)
            for (std::size_t j = 0; j < n2_; ++j)
                at(static_cast<std::int64_t>(i), static_cast<std::int64_t>(j)) =
                    src.at(static_cast<std::int64_t>(i), static_cast<std::int64_t>(j));
    }

    friend bool operator==(const DynArray2D&, const DynArray2D&) = default;

  private:
    std::size_t check(std::int64_t i, std::int64_t j) const {
        if (i < 0 || i >= static_cast<std::int64_t>(n1_)) ThrowIndexOutOfRange(i, upper(1));
        if (j < 0 || j >= static_cast<std::int64_t>(n2_)) ThrowIndexOutOfRange(j, upper(2));
        return static_cast<std::size_t>(i) * n2_ + static_cast<std::size_t>(j);
    }
    std::size_t n1_, n2_;
    std::vector<T> v_;
};

}  // namespace qdf
