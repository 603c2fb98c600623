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

/// An ordered tree of named children, each with a text or with children of its own, and its one XML form.
///
/// A child with neither text nor children is both: its text is empty and so is its tree. Keys are
/// [A-Za-z_][A-Za-z0-9_.-]*; adding under another key is a programming error (StopException), looking one up
/// finds nothing. Copies are deep; what was moved from is empty. The form is described in
/// docs/xml-and-text-forms.md.
class NOLVEXLIB_EXPORT XmlString
{
public:
    XmlString();
    ~XmlString();
    XmlString(const XmlString& other);
    XmlString(XmlString&& other) noexcept;
    XmlString& operator=(const XmlString& other);
    XmlString& operator=(XmlString&& other) noexcept;

    /// Reads the XML form. The error is an English sentence that says what is wrong and where, counted in
    /// bytes of the text's UTF-8 form from 0. Time and memory are in proportion to the length: at most about
    /// 20 bytes a byte read.
    static Expected<XmlString, String> fromString(StringView xml);

    /// The same from UTF-8; a broken sequence is an error.
    static Expected<XmlString, String> fromUtf8(std::string_view xml);

    /// The same children of the same names and texts in the same order.
    bool operator==(const XmlString& other) const;

    /// Appends a child with a text. Characters XML cannot carry (controls but tab, LF and CR; U+FFFE, U+FFFF;
    /// lone surrogates) become U+FFFD.
    void addChild(StringView key, const String& value);

    /// Appends a child with a copy of the tree's children. Levels beyond 64, the root being the first, are a
    /// programming error (StopException). Nothing is changed then.
    void addChild(StringView key, const XmlString& tree);

    /// Appends copies of all the other's top-level children in order. Equal keys stay side by side.
    void addTree(const XmlString& other);

    /// Removes all top-level children of that name and returns how many there were.
    std::size_t removeChildren(StringView key);

    /// The text of the first child of that name; none when there is no such child or it has children instead.
    Optional<String> getChild(StringView key) const;

    /// The children of the first child of that name; none when there is no such child or it has a text
    /// instead.
    Optional<XmlString> getTree(StringView key) const;

    /// How many top-level children have that name.
    std::size_t countChildren(StringView key) const;

    /// How many top-level children there are. Counts them.
    std::size_t childCount() const;

    bool isEmpty() const;

    /// The XML form, which fromString reads back as an equal tree.
    String toString() const;

    std::string toUtf8() const;

private:
    struct Content;

    Content& content();

    std::unique_ptr<Content> m_content; // null as long as there are no children
};

} // namespace Nolvex
