// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/StopException.h"

#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <variant>

namespace Nolvex {

namespace Detail {

template<class T, class... Types>
concept OneOf = (std::same_as<std::remove_cvref_t<T>, Types> || ...);

} // namespace Detail

/// Holds one of several alternatives, or is empty. The index of an empty variant is the number of
/// alternatives.
template<class... Alternatives>
class Variant
{
    struct Empty
    {
        friend constexpr bool operator==(const Empty&, const Empty&) = default;
    };

    using Content = std::variant<Alternatives..., Empty>;

public:
    static constexpr std::size_t EMPTY_INDEX = sizeof...(Alternatives);

    Variant() : m_content(std::in_place_index<EMPTY_INDEX>) {}

    template<Detail::OneOf<Alternatives...> T>
    // NOLINTNEXTLINE(google-explicit-constructor,bugprone-forwarding-reference-overload): as std::variant
    Variant(T&& value) : m_content(std::in_place_type<std::remove_cvref_t<T>>, std::forward<T>(value))
    {}

    friend bool operator==(const Variant& a, const Variant& b)

        requires(std::equality_comparable<Alternatives>&&...)
    {
        // Comparing the contents would not do: a variant is also empty after an exception.
        return a.isEmpty() ? b.isEmpty() : a.m_content == b.m_content;
    }

    /// 0 to EMPTY_INDEX. An assignment that threw in the middle leaves the variant empty.
    std::size_t index() const noexcept
    {
        return m_content.valueless_by_exception() ? EMPTY_INDEX : m_content.index();
    }

    bool isEmpty() const noexcept { return index() == EMPTY_INDEX; }

    void reset() { m_content.template emplace<EMPTY_INDEX>(); }

    template<class T, class... Arguments>
    T& emplace(Arguments&&... arguments)
    {
        return m_content.template emplace<T>(std::forward<Arguments>(arguments)...);
    }

    /// Replaces the content by a default-constructed alternative of that index, or by nothing for
    /// EMPTY_INDEX. A larger index is a programming error (StopException) and changes nothing.
    void emplaceIndex(std::size_t index)
    {
        if (!emplaceIndexFrom<0>(index))
            Detail::throwStopException("Variant", __LINE__);
    }

    /// The alternative, or null if the variant holds another alternative or is empty.
    template<class T>
    T* tryGet() noexcept
    {
        return std::get_if<T>(&m_content);
    }

    template<class T>
    const T* tryGet() const noexcept
    {
        return std::get_if<T>(&m_content);
    }

    /// The alternative. Throws std::bad_variant_access if the variant holds another alternative or is empty.
    template<class T>
    T& get()
    {
        return std::get<T>(m_content);
    }

    template<class T>
    const T& get() const
    {
        return std::get<T>(m_content);
    }

private:
    template<std::size_t I>
    bool emplaceIndexFrom(std::size_t index)
    {
        if constexpr (I > EMPTY_INDEX) {
            return false;
        } else {
            if (index != I)
                return emplaceIndexFrom<I + 1>(index);
            m_content.template emplace<I>();
            return true;
        }
    }

    Content m_content;
};

} // namespace Nolvex
