// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <variant>

namespace Nolvex {

/// Wraps an error, so that an Expected can be made of it.
template<class Error>
struct Unexpected
{
    Error error;
};

template<class Error>
Unexpected(Error) -> Unexpected<Error>;

/// A value, or the error because of which there is no value.
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

    /// The value. Throws std::bad_variant_access if there is an error instead.
    const Value& value() const& { return std::get<0>(m_content); }

    Value& value() & { return std::get<0>(m_content); }

    Value&& value() && { return std::get<0>(std::move(m_content)); }

    /// The error. Throws std::bad_variant_access if there is a value instead.
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
