// What the C++ libraries of the browser's compilers still lack and the game uses; read before every source of the
// browser's programs. Where a library has it, nothing of this is defined.
#pragma once

#include <bit>
#include <charconv>
#include <version>

#if !defined(__cpp_lib_bit_cast)
#include <cstring>
#include <type_traits>

namespace std {
template <typename To, typename From>
requires(sizeof(To) == sizeof(From) && is_trivially_copyable_v<To> && is_trivially_copyable_v<From>) To
    bit_cast(const From& from) {
    To to;
    memcpy(&to, &from, sizeof to);
    return to;
}
}  // namespace std
#endif

#if _LIBCPP_VERSION < 150000
#include <algorithm>
#include <functional>
#include <iterator>

namespace std::ranges {
template <typename Range, typename Out>
Out copy(Range&& range, Out out) {
    return std::copy(std::begin(range), std::end(range), out);
}

template <typename Range, typename Out, typename Wanted>
Out copy_if(Range&& range, Out out, Wanted wanted) {
    return std::copy_if(std::begin(range), std::end(range), out, wanted);
}

template <typename Range, typename Value, typename Projection = identity>
auto count(Range&& range, const Value& value, Projection projection = {}) {
    return std::count_if(std::begin(range), std::end(range),
                         [&](const auto& each) { return invoke(projection, each) == value; });
}

template <typename Range>
auto max_element(Range&& range) {
    return std::max_element(std::begin(range), std::end(range));
}

template <typename Range>
auto max(Range&& range) {
    return *ranges::max_element(range);
}
}  // namespace std::ranges
#endif

#if !defined(__cpp_lib_smart_ptr_for_overwrite)
#include <memory>
#include <type_traits>

namespace std {
template <typename T>
requires is_unbounded_array_v<T> unique_ptr<T> make_unique_for_overwrite(size_t count) {
    return unique_ptr<T>(new remove_extent_t<T>[count]);
}
}  // namespace std
#endif

#if _LIBCPP_VERSION < 140000
#include <cstdio>
#include <cstdlib>
#include <string>
#include <type_traits>

namespace std {
// With a precision, which the game always gives.
inline to_chars_result to_chars(char* first, char* last, double value, chars_format, int precision) {
    const int length = snprintf(first, static_cast<size_t>(last - first), "%.*g", precision, value);
    if (length >= last - first) return {last, errc::value_too_large};
    return {first + length, errc{}};
}

// The fewest digits that read back as the same number.
template <typename T>
requires is_floating_point_v<T> to_chars_result to_chars(char* first, char* last, T value) {
    constexpr int kMost = 17;
    for (int precision = 1;; ++precision) {
        const to_chars_result written =
            to_chars(first, last, static_cast<double>(value), chars_format::general, precision);
        if (written.ec != errc{} || precision == kMost) return written;
        if (static_cast<T>(strtod(string(first, written.ptr).c_str(), nullptr)) == value) return written;
    }
}
}  // namespace std
#endif

#if _LIBCPP_VERSION < 200000
#include <cerrno>
#include <cstdlib>
#include <string>

namespace std {
// Decimal numbers only. There is no other locale in a browser.
template <typename T>
requires is_floating_point_v<T> from_chars_result from_chars(const char* first, const char* last, T& value) {
    const string text(first, last);
    const size_t length = text.find_first_not_of("0123456789.eE+-");
    const string number = text.substr(0, length);
    if (number.empty() || number.front() == '+') return {first, errc::invalid_argument};
    char* end = nullptr;
    errno = 0;
    const double read = strtod(number.c_str(), &end);
    if (end == number.c_str()) return {first, errc::invalid_argument};
    const char* const stopped = first + (end - number.c_str());
    if (errno == ERANGE) return {stopped, errc::result_out_of_range};
    value = static_cast<T>(read);
    return {stopped, errc{}};
}
}  // namespace std
#endif

#if _LIBCPP_VERSION < 150000
#include <algorithm>
#include <functional>
#include <iterator>

// Of the algorithms on ranges those that the floors use.
namespace std::ranges {
template <typename Range, typename Predicate, typename Projection = identity>
constexpr auto find_if(Range&& range, Predicate predicate, Projection projection = {}) {
    auto at = std::begin(range);
    while (at != std::end(range) && !invoke(predicate, invoke(projection, *at))) ++at;
    return at;
}
template <typename Range, typename Value, typename Projection = identity>
constexpr auto find(Range&& range, const Value& value, Projection projection = {}) {
    return ranges::find_if(
        range, [&](const auto& each) { return each == value; }, projection);
}
template <typename Range, typename Predicate, typename Projection = identity>
constexpr bool any_of(Range&& range, Predicate predicate, Projection projection = {}) {
    return ranges::find_if(range, predicate, projection) != std::end(range);
}
template <typename Range, typename Predicate, typename Projection = identity>
constexpr bool all_of(Range&& range, Predicate predicate, Projection projection = {}) {
    return !ranges::any_of(range, not_fn(predicate), projection);
}
template <typename Range, typename Other>
constexpr bool equal(Range&& range, Other&& other) {
    return std::equal(std::begin(range), std::end(range), std::begin(other), std::end(other));
}
template <typename Range, typename Value>
constexpr void fill(Range&& range, const Value& value) {
    std::fill(std::begin(range), std::end(range), value);
}
template <typename Range, typename Order = std::less<>>
constexpr void sort(Range&& range, Order order = {}) {
    std::sort(std::begin(range), std::end(range), order);
}
}  // namespace std::ranges
#endif
