// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Nolvex::Detail {

/// How many levels of elements a document may have. The root is level 1.
inline constexpr int MAX_XML_LEVELS = 64;

/// The elements below the root of a document, in the order of their start tags.
class XmlTree
{
public:
    struct Element
    {
        std::size_t name; ///< where the name begins in the storage; a zero byte ends it
        std::size_t text; ///< the same of the text, which is empty if the element has children
        int level;        ///< 1 for the children of the root
    };

    /// An element and those below it have the indices from `first` to before `end`.
    struct Range
    {
        std::size_t first;
        std::size_t end;

        bool operator==(const Range&) const = default;
    };

    XmlTree() = default;

    /// The elements point into the storage.
    XmlTree(std::string storage, Array<Element> elements);

    bool operator==(const XmlTree& other) const;

    bool isEmpty() const { return m_elements.empty(); }

    std::string_view name(std::size_t index) const { return m_storage.data() + m_elements[index].name; }

    std::string_view text(std::size_t index) const { return m_storage.data() + m_elements[index].text; }

    /// The first child of the root, or an empty range.
    Range firstChild() const { return childAt(0); }

    /// The next child of the root, or an empty range.
    Range nextChild(const Range& child) const { return childAt(child.end); }

    /// The elements below the first element of the range.
    static Range below(const Range& element) { return {element.first + 1, element.end}; }

    Range all() const { return {0, m_elements.size()}; }

    /// The number of levels below the root.
    int levelCount() const;

    /// Neither name nor text may contain a zero byte.
    void append(std::string_view name, std::string_view text, int level);

    /// Appends copies of a range of the source, which may be this tree. The first copy is of this level.
    void append(const XmlTree& source, const Range& range, int level);

    /// The document with this tree as its only form.
    std::string toUtf8() const;

private:
    Range childAt(std::size_t index) const;

    std::string m_storage;
    Array<Element> m_elements;
};

} // namespace Nolvex::Detail
