// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/StopException.h"

#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace Nolvex {

template<class Signature>
class Function;

namespace Detail {

template<class Callable, class Owner, class Result, class... Arguments>
concept CallableFor = !std::same_as<std::remove_cvref_t<Callable>, Owner> &&
                      std::is_invocable_r_v<Result, std::decay_t<Callable>&, Arguments...>;

template<class T>
inline constexpr bool MAY_BE_EMPTY_CALLABLE = std::is_pointer_v<T> || std::is_member_pointer_v<T>;

template<class Signature>
inline constexpr bool MAY_BE_EMPTY_CALLABLE<Function<Signature>> = true;

template<class Signature>
inline constexpr bool MAY_BE_EMPTY_CALLABLE<std::function<Signature>> = true;

/// True for a null pointer and an empty function, which have the type of a callable and nothing to call.
template<class Callable>
bool isEmptyCallable(const Callable& callable)
{
    if constexpr (MAY_BE_EMPTY_CALLABLE<Callable>)
        return !callable;
    else
        return false;
}

} // namespace Detail

/// A callable whose copies share one target by reference counting. A Function is empty if it is made of
/// nothing, of a null pointer to a function, or of an empty function of another type.
///
/// A call keeps the target alive until it returns, so the target may replace or destroy the Function that
/// holds the target. Calling an empty Function is a programming error (StopException): test it first.
template<class Result, class... Arguments>
class Function<Result(Arguments...)>
{
public:
    Function() = default;

    Function(std::nullptr_t) // NOLINT(google-explicit-constructor): null is the empty callable
    {}

    template<Detail::CallableFor<Function, Result, Arguments...> Callable>
    // NOLINTNEXTLINE(google-explicit-constructor,bugprone-forwarding-reference-overload): any callable
    Function(Callable&& callable)
    {
        using Held = std::decay_t<Callable>;
        // The test takes the decayed type: a function has become a pointer.
        if (!Detail::isEmptyCallable<Held>(callable))
            m_target = std::make_shared<Holder<Held>>(std::forward<Callable>(callable));
    }

    explicit operator bool() const noexcept { return m_target != nullptr; }

    Result operator()(Arguments... arguments) const
    {
        const std::shared_ptr<Target> target = m_target;
        if (!target)
            Detail::throwStopException("Function", __LINE__);
        return target->call(std::forward<Arguments>(arguments)...);
    }

private:
    struct Target
    {
        virtual ~Target() = default;
        virtual Result call(Arguments... arguments) = 0;
    };

    template<class Callable>
    struct Holder final : Target
    {
        explicit Holder(const Callable& c) : callable(c) {}

        explicit Holder(Callable&& c) : callable(std::move(c)) {}

        Result call(Arguments... arguments) override
        {
            if constexpr (std::is_void_v<Result>)
                std::invoke(callable, std::forward<Arguments>(arguments)...);
            else
                return std::invoke(callable, std::forward<Arguments>(arguments)...);
        }

        Callable callable;
    };

    std::shared_ptr<Target> m_target;
};

} // namespace Nolvex
