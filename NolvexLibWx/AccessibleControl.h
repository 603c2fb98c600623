// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::Wx {

/// What a control is, for users who cannot see it.
enum class AccessibleRole : int
{
    PUSH_BUTTON,
    TOGGLE_BUTTON,   ///< stays pressed while it is CHECKED
    DROPDOWN_BUTTON, ///< offers further choices while it is held
    CHECK_BOX,
    LABEL,
    LINK,
    DISCLOSURE, ///< folds something away and shows it again
    GROUP,
    IMAGE,
    SEPARATOR,
    BORDER,  ///< a frame around another window, of no interest by itself
    SPINNER, ///< a number with a range
    COMBO_BOX,
    SLIDER, ///< a number with a range, which is dragged
};

/// The states that only the control itself knows. The library finds out by itself whether the control is
/// enabled, shown, focusable or focused.
enum class AccessibleState : std::uint32_t
{
    CHECKABLE = 1,
    CHECKED = 2,
    MIXED = 4, ///< neither checked nor unchecked
    EXPANDABLE = 8,
    EXPANDED = 16,
    HAS_POPUP = 32,
    READ_ONLY = 64,
};

/// A number within bounds.
struct AccessibleValue
{
    double current = 0;
    double minimum = 0;
    double maximum = 0;
    double step = 0; ///< the smallest useful change, or 0 if there is none
    String text;     ///< as the control shows the number

    bool operator==(const AccessibleValue&) const = default;
};

/// What assistive technology, such as a screen reader, is told about one control, and what it may do to the
/// control. Each kind of control implements this interface and hands it over with describeAs.
///
/// An account is made when assistive technology first asks about the control, and dies with the control. All
/// functions are called on the main thread, and only while the control exists; those that change something,
/// only while the control is enabled and shown on the screen. A change that assistive technology makes is the
/// user's: it sends the same events and calls the same callbacks, and these may destroy the control.
class NOLVEXLIBWX_EXPORT AccessibleControl : private Noncopyable
{
public:
    virtual ~AccessibleControl();

    virtual AccessibleRole role() const = 0;

    /// Returns the label as it is shown, without mnemonics. A name that setAccessibleName has set takes
    /// precedence.
    virtual String name() const = 0;

    /// The text of a tooltip takes precedence over this description.
    virtual String description() const { return {}; }

    virtual Flags<AccessibleState> states() const { return {}; }

    /// The names of what can be done to the control, the most common action first.
    virtual Array<String> actions() const { return {}; }

    /// `index` is an index into `actions()`.
    virtual void doAction(int index);

    /// The number in a spinner or slider.
    virtual Optional<AccessibleValue> value() const { return {}; }

    /// `value` is within the bounds.
    virtual void setValue(double value);

    /// The value of a control that shows no number, such as a colour. Ignored if there is a `value()`.
    virtual String valueText() const { return {}; }

    /// The choices of a combo box or list, or the further choices of a button.
    virtual int itemCount() const { return 0; }

    /// `index` is at least 0 and below `itemCount()`, here and below.
    virtual String itemName(int index) const;

    virtual Optional<int> selectedItem() const { return {}; }

    /// Selects the choice of a list, or makes the choice of a button.
    virtual void selectItem(int index);

protected:
    AccessibleControl() = default;
};

} // namespace Nolvex::Wx
