// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace Nolvex {

namespace Detail {
class XmlTree;
} // namespace Detail

/// An ordered tree of named children, each of which has a text or children of its own. A tree has exactly one
/// XML form.
///
/// A child with neither text nor children has an empty text and an empty tree. Keys match
/// [A-Za-z_][A-Za-z0-9_.-]*. Adding a child under another key is a programming error (StopException); looking
/// for another key finds nothing. Copies are deep, and a tree that was moved from is empty.
/// docs/xml-and-text-forms.md describes the form.
class NOLVEXLIB_EXPORT XmlString
{
public:
    XmlString();
    ~XmlString();
    XmlString(const XmlString& other);
    XmlString(XmlString&& other) noexcept;
    XmlString& operator=(const XmlString& other);
    XmlString& operator=(XmlString&& other) noexcept;

    /// Reads the XML form. The error is an English sentence that says what is wrong and where, in bytes of
    /// the UTF-8 form from 0. Time and memory grow in proportion to the length; each byte takes at most 7
    /// bytes of memory.
    static Expected<XmlString, String> fromString(StringView xml);

    /// Reads the XML form from UTF-8. A broken sequence is an error.
    static Expected<XmlString, String> fromUtf8(std::string_view xml);

    /// True if both have the same children with the same names and texts in the same order.
    bool operator==(const XmlString& other) const;

    /// Appends a child with a text. Characters XML cannot carry (controls but tab, LF and CR; U+FFFE, U+FFFF;
    /// lone surrogates) become U+FFFD.
    void addChild(StringView key, const String& value);

    /// Appends a child with copies of the children of `other`. A tree has at most 64 levels, the root being
    /// the first: more are a programming error (StopException), and nothing is changed then.
    void addChild(StringView key, const XmlString& other);

    /// Appends copies of all top-level children of `other` in their order. Children of equal keys are all
    /// kept.
    void addTree(const XmlString& other);

    /// Removes all top-level children of that name and returns their number.
    std::size_t removeChildren(StringView key);

    /// The text of the first child of that name. Returns nullopt if there is no such child or it has children
    /// instead.
    Optional<String> getChild(StringView key) const;

    /// The children of the first child of that name. Returns nullopt if there is no such child or it has a
    /// text instead.
    Optional<XmlString> getTree(StringView key) const;

    /// The number of top-level children of that name.
    std::size_t countChildren(StringView key) const;

    /// The number of top-level children, which takes time in proportion to it.
    std::size_t childCount() const;

    bool isEmpty() const;

    /// The XML form, from which fromString makes an equal tree.
    String toString() const;

    std::string toUtf8() const;

private:
    struct Content;

    const Detail::XmlTree& tree() const;
    Detail::XmlTree& tree();

    std::unique_ptr<Content> m_content; // null until a child is added
};

} // namespace Nolvex
