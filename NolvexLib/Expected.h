// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <variant>

namespace Nolvex {

/// Marks an error on its way into an Expected.
template<class Error>
struct Unexpected
{
    Error error;
};

template<class Error>
Unexpected(Error) -> Unexpected<Error>;

/// A value, or the error that stands in its place.
template<class Value, class Error>
class [[nodiscard]] Expected
{
public:
    Expected(Value value) // NOLINT(google-explicit-constructor): success reads as the value itself
        : m_content(std::in_place_index<0>, std::move(value))
    {}

    template<class E>
    Expected(Unexpected<E> unexpected) // NOLINT(google-explicit-constructor): the marker says it is an error
        : m_content(std::in_place_index<1>, std::move(unexpected.error))
    {}

    bool hasValue() const noexcept { return m_content.index() == 0; }

    explicit operator bool() const noexcept { return hasValue(); }

    /// The value; std::bad_variant_access when there is none.
    const Value& value() const& { return std::get<0>(m_content); }

    Value& value() & { return std::get<0>(m_content); }

    Value&& value() && { return std::get<0>(std::move(m_content)); }

    /// The error; std::bad_variant_access when there is a value.
    const Error& error() const& { return std::get<1>(m_content); }

    const Value& operator*() const& { return value(); }

    Value& operator*() & { return value(); }

    Value&& operator*() && { return std::move(*this).value(); }

    const Value* operator->() const { return &value(); }

    Value* operator->() { return &value(); }

private:
    std::variant<Value, Error> m_content;
};

} // namespace Nolvex
