// SPDX-License-Identifier: MIT
#include "examples/transfer/Reception.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLib/StopException.h"

#include <exception>
#include <system_error>
#include <utility>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

// A sender may stay silent for MAX_SILENCE between two messages. After the offer of a file, which it may have
// to compress first, it may stay silent for MAX_PREPARATION.
constexpr seconds MAX_SILENCE(60);
constexpr seconds MAX_PREPARATION(600);

// How often the silence of the sender is compared with the patience.
constexpr seconds PATIENCE_CHECK_PERIOD(1);

// The senders' headers are short. One that takes longer is held back on purpose.
constexpr seconds MAX_HEADER_TIME(10);

// The longest text that is printed.
constexpr std::size_t MAX_HEADER_SIZE = std::size_t{1} << 20;

// A sender that does not take its answer in this time is considered gone.
constexpr std::int64_t MAX_ANSWER_MS = 10'000;

// Raw memory arrives as a whole, and the program only counts it.
constexpr std::int64_t MAX_MEMORY_SIZE = std::int64_t{64} << 20;

std::int64_t numberIn(const XmlString& header, const wchar_t* key)
{
    const String text = header.getChild(key).value_or(String());
    return SimpleTextDeserializer::parse<std::int64_t>(text).value_or(0);
}

String nameIn(const XmlString& header)
{
    return header.getChild(L"Name").value_or(String());
}

std::int64_t sizeOf(const std::filesystem::path& path)
{
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(path, missing);
    return missing ? 0 : static_cast<std::int64_t>(size);
}

} // namespace

Reception::Reception(TcpSocket connection, IncomingFolder& folder, Ledger& ledger)
    : m_connection(std::move(connection)),
      m_folder(folder),
      m_ledger(ledger),
      m_patience(MAX_SILENCE),
      m_thread([this] { run(); })
{}

Reception::~Reception()
{
    m_connection.close();
    m_thread.join();
}

void Reception::beginEnd()
{
    m_ending = true;
    m_connection.beginClose();
}

void Reception::run()
{
    try {
        serve();
    } catch (const StopException&) {
        m_ledger.enterRefused(L"The sender speaks another protocol.");
    } catch (const std::exception& failure) {
        m_ledger.enterRefused(String::fromUtf8(failure.what()));
    }
    removePart();
    m_connection.close();
    m_ended = true;
}

void Reception::serve()
{
    m_connection.setHeaderSizeLimit(MAX_HEADER_SIZE);
    m_connection.setHeaderTimeLimit(MAX_HEADER_TIME);
    auto lastMessage = steady_clock::now();
    while (m_connection.isOpen() && steady_clock::now() - lastMessage < m_patience) {
        if (!m_connection.waitForMessage(PATIENCE_CHECK_PERIOD))
            continue;
        receiveOne();
        lastMessage = steady_clock::now();
    }
    if (m_expectsFile && !m_ending)
        throw Exception("A file was offered and did not come.");
}

// The connection ends with a message that fails, because the rest of that message would be taken for the next
// message.
void Reception::receiveOne()
{
    ReceivedData message;
    m_bodyBegan = false;
    if (m_connection.readData(message, m_hooks) == SocketResult::Success)
        answer(accept(message));
    else if (m_bodyBegan)
        throw Exception(m_refusal.empty() ? "A file broke off, or could not be written."
                                          : "A file was refused. " + m_refusal);
    else
        throw Exception("A message broke off, or the sender speaks another protocol.");
}

Io::Path Reception::Hooks::getFilePath(const XmlString& /*header*/) const
{
    m_reception.m_part = m_reception.m_folder.pathOfPart();
    return m_reception.m_part;
}

void Reception::Hooks::onReceiveStart(const XmlString& header) const
{
    m_reception.beginBody(header);
}

void Reception::Hooks::onReceiveEnd(const XmlString& /*header*/) const
{
    m_reception.m_bar.reset();
}

void Reception::beginBody(const XmlString& header)
{
    m_bodyBegan = true;
    m_refusal = refusalOf(header);
    if (!m_refusal.empty())
        throw Exception(m_refusal);
    m_bar = std::make_unique<ProgressBar>(numberIn(header, L"FileSize"),
                                          [part = m_part] { return sizeOf(part); });
}

std::string Reception::refusalOf(const XmlString& header) const
{
    // The header states this size for a compressed file, too. The compressed bytes are not stored.
    const std::int64_t size = numberIn(header, L"FileSize");
    if (!m_part.empty())
        return m_folder.refusal(size);
    return size > MAX_MEMORY_SIZE ? "It is too much memory." : std::string();
}

// Each function that accepts returns the answer to the sender.
String Reception::accept(const ReceivedData& message)
{
    m_patience = MAX_SILENCE;
    m_expectsFile = false;
    if (const auto* text = message.tryGet<XmlString>())
        return text->getChild(L"Offer") ? acceptOffer(*text) : acceptText(*text);
    if (const auto* file = message.tryGet<ReceivedFile>())
        return acceptFile(file->header);
    m_ledger.enterReceived("memory", String());
    return L"received";
}

String Reception::acceptText(const XmlString& text)
{
    m_ledger.enterReceived("text", text.getChild(L"Text").value_or(String()));
    return L"received";
}

String Reception::acceptOffer(const XmlString& offer)
{
    const std::string refusal = m_folder.refusal(numberIn(offer, L"Offer"));
    if (refusal.empty()) {
        m_patience = MAX_PREPARATION;
        m_expectsFile = true;
        return L"welcome";
    }
    m_ledger.enterRefused(L"The file " + nameIn(offer) + L" was refused. " + String::fromUtf8(refusal));
    return String::fromUtf8(refusal);
}

String Reception::acceptFile(const XmlString& header)
{
    const std::filesystem::path path = m_folder.keep(m_part, nameIn(header));
    m_part.clear();
    m_ledger.enterReceived("file", Io::Path(path).nativeStr());
    return L"received";
}

void Reception::answer(const String& word)
{
    XmlString message;
    message.addChild(L"Answer", word);
    if (m_connection.writeString(message, MAX_ANSWER_MS) != SocketResult::Success)
        m_connection.close();
}

void Reception::removePart()
{
    std::error_code missing;
    if (!m_part.empty())
        std::filesystem::remove(m_part, missing);
    m_part.clear();
}
