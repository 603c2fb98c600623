// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/MessageCut.h"

#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/arrstr.h>
#include <wx/dcclient.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace Nolvex {

namespace {

const wchar_t* const ELLIPSIS = L"\u2026";

bool isFirstHalf(wchar_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isSecondHalf(wchar_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The room for a message, in lines and in the narrowest characters of a line.
struct Room
{
    int lines;
    int lineLength;
};

// Returns the end of the part of the message that can be seen at most.
std::size_t visibleEnd(const std::wstring& message, const Room& room)
{
    int lines = room.lines;
    int length = 0;
    for (std::size_t i = 0; i < message.size(); ++i) {
        if (message[i] == L'\n' || ++length == room.lineLength) {
            length = 0;
            --lines;
        }
        if (lines == 0)
            return MessageCut::cutLength(message, i);
    }
    return message.size();
}

// Returns the number of characters, at least one, that fit into the width. Windows cannot measure more than
// some thousand characters at once, so only a line's worth of characters is measured.
std::size_t fittingLength(const wxDC& dc, const wxString& word, int width)
{
    wxArrayInt ends;
    dc.GetPartialTextExtents(word, ends);
    const auto fitting = std::upper_bound(ends.begin(), ends.end(), width) - ends.begin();
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(fitting, 1));
}

// The length of the first character of a word.
std::size_t firstCharacter(const std::wstring& word)
{
    return MessageCut::cutLength(word, 1) == 1 ? 1 : 2;
}

std::wstring broken(const wxDC& dc, std::wstring word, int width, const Room& room)
{
    std::wstring lines;
    for (;;) {
        const std::wstring start = word.substr(0, static_cast<std::size_t>(room.lineLength));
        const std::size_t fitting = MessageCut::cutLength(word, fittingLength(dc, start, width));
        // At least one character makes progress.
        const std::size_t length = std::max(fitting, firstCharacter(word));
        if (length == word.size())
            return lines + word;
        lines += word.substr(0, length) + L'\n';
        word.erase(0, length);
    }
}

// Breaks the words that are wider than the width.
std::wstring withBrokenWords(const wxDC& dc, const std::wstring& message, int width, const Room& room)
{
    constexpr const wchar_t* BREAKS = L" \n";
    std::wstring text;
    std::size_t start = 0;
    while (start < message.size()) {
        const std::size_t end = std::min(message.find_first_of(BREAKS, start), message.size());
        if (end > start)
            text += broken(dc, message.substr(start, end - start), width, room);
        if (end < message.size())
            text += message[end];
        start = end + 1;
    }
    return text;
}

} // namespace

std::size_t MessageCut::cutLength(const std::wstring& text, std::size_t length)
{
    const bool isInside = length > 0 && length < text.size();
    return isInside && isFirstHalf(text[length - 1]) && isSecondHalf(text[length]) ? length - 1 : length;
}

String MessageCut::prepared(const String& message, Wx::StaticText& text, int width, int height)
{
    wxClientDC dc(&text);
    dc.SetFont(text.GetFont());
    const wxSize narrow = dc.GetTextExtent(L"l");
    // Two more lines make the text too high for the screen, so that the cut is marked.
    const Room room{height / std::max(narrow.y, 1) + 2, width / std::max(narrow.x, 1) + 1};
    const std::size_t end = visibleEnd(message.wstr(), room);
    const std::wstring visible = withBrokenWords(dc, message.wstr().substr(0, end), width, room);
    return end == message.length() ? visible : visible + L'\n' + ELLIPSIS;
}

void MessageCut::byHeight(Wx::StaticText& text, int excess)
{
    wxArrayString lines = wxSplit(text.GetLabel(), L'\n', L'\0');
    const int count = static_cast<int>(lines.size());
    if (count < 2)
        return;
    const int lineHeight = std::max(text.GetBestSize().y / count, 1);
    // The line of the ellipsis needs room, too.
    const int removed = (std::max(excess, 0) + lineHeight - 1) / lineHeight + 1;
    lines.resize(static_cast<std::size_t>(std::max(count - removed, 1)));
    text.SetLabel(wxJoin(lines, L'\n', L'\0') + L"\n" + ELLIPSIS);
}

} // namespace Nolvex
