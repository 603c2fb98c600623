// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"
#include "support/PairedRatio.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <string>

namespace Nolvex::Benchmarks {

namespace {

constexpr std::size_t SIZE = 1024;
constexpr int PARSINGS = 500; // in one call of the work

/// Returns the header of a file with remarks of its sender, 1 KB in all.
std::string makeHeader()
{
    XmlString header;
    header.addChild(L"DataType", L"1");
    for (int i = 0; header.toUtf8().size() < SIZE; ++i)
        header.addChild(L"Remark" + String(std::to_wstring(i)), L"rendered in 12 passes, 4 threads");
    header.addChild(L"FileSize", L"123456789");
    header.addChild(L"Compressed", L"0");
    return header.toUtf8();
}

/// pugixml makes the same tree, without the checks by which XmlString refuses documents.
void parseByPugixml(const std::string& header)
{
    constexpr unsigned int OPTIONS = pugi::parse_minimal | pugi::parse_escapes | pugi::parse_ws_pcdata_single;
    for (int i = 0; i < PARSINGS; ++i) {
        pugi::xml_document document;
        const auto result = document.load_buffer(header.data(), header.size(), OPTIONS, pugi::encoding_utf8);
        benchmark::DoNotOptimize(result.status);
    }
}

void parseByXmlString(const std::string& header)
{
    for (int i = 0; i < PARSINGS; ++i) {
        const auto tree = XmlString::fromUtf8(header);
        benchmark::DoNotOptimize(tree.hasValue());
    }
}

Contest parsings()
{
    const std::string header = makeHeader();
    return {[header] { parseByPugixml(header); }, [header] { parseByXmlString(header); }};
}

const Figure PARSING("xml_header_parsing", 0.85, parsings);

} // namespace

} // namespace Nolvex::Benchmarks
