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

/// One of several alternatives, or empty. The index of the empty state is the number of alternatives.
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
    // NOLINTNEXTLINE(google-explicit-constructor,bugprone-forwarding-reference-overload): it is one of itself
    Variant(T&& value) : m_content(std::in_place_type<std::remove_cvref_t<T>>, std::forward<T>(value))
    {}

    friend bool operator==(const Variant& a, const Variant& b)

        requires(std::equality_comparable<Alternatives>&&...)
    {
        // Not left to the content alone: there are two ways to be empty.
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

    /// Makes the alternative of that index, default-constructed, the content; EMPTY_INDEX empties.
    /// An index beyond is a programming error (StopException) and changes nothing.
    void emplaceIndex(std::size_t index)
    {
        if (!emplaceIndexFrom<0>(index))
            Detail::throwStopException("Variant", __LINE__);
    }

    /// The alternative, or null when another one (or none) is held.
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

    /// The alternative; std::bad_variant_access when another one (or none) is held.
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
