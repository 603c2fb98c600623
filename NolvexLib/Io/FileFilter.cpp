// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileFilter.h"

#include "NolvexLib/StopException.h"

namespace Nolvex::Io {

namespace {

void appendWithSeparator(String& list, StringView separator, const String& part)
{
    if (!list.isEmpty())
        list += separator;
    list += part;
}

String patternList(const FileFilter& filter)
{
    String list;
    for (const String& pattern : filter.patterns) {
        if (!pattern.isEmpty())
            appendWithSeparator(list, L";", pattern);
    }
    return list.isEmpty() ? String(L"*") : list.replaceAll(L"|", L"?");
}

String describe(const FileFilter& filter, const String& patterns)
{
    if (filter.description.isEmpty())
        return patterns;
    String description = filter.description;
    description.replaceAll(L"|", L"/");
    const String suffix = L" (" + patterns + L")";
    return description.wstr().ends_with(suffix.wstr()) ? description : description + suffix;
}

} // namespace

String FileFilter::getWildcardString(ArrayView<const FileFilter> filters, FileFilterFormat format)
{
    if (format != FileFilterFormat::WILDCARD)
        Detail::throwStopException("Io/FileFilter", __LINE__);
    String list;
    for (const FileFilter& filter : filters) {
        const String patterns = patternList(filter);
        appendWithSeparator(list, L"|", describe(filter, patterns) + L"|" + patterns);
    }
    return list;
}

} // namespace Nolvex::Io
