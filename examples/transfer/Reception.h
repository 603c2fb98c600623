// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/TcpSocket.h"
#include "examples/transfer/IncomingFolder.h"
#include "examples/transfer/Ledger.h"
#include "examples/transfer/ProgressBar.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

/// A connection to a sender, served on its own thread until the sender closes the connection, stays silent or
/// sends a message that cannot be accepted.
class Reception
{
public:
    /// Folder and ledger must outlive the object.
    Reception(Nolvex::Wx::Legacy::TcpSocket connection, IncomingFolder& folder, Ledger& ledger);

    /// Breaks off a running transfer and waits for the thread.
    ~Reception();

    Reception(const Reception&) = delete;
    Reception& operator=(const Reception&) = delete;

    /// Tells the thread to break its transfer off, and does not wait for it.
    void beginEnd();

    /// True when nothing is left to wait for.
    bool hasEnded() const { return m_ended; }

private:
    /// The questions that the library asks while it receives a message.
    class Hooks : public Nolvex::Wx::Legacy::ReadDataContext
    {
    public:
        explicit Hooks(Reception& reception) : m_reception(reception) {}

        Nolvex::Io::Path getFilePath(const Nolvex::XmlString& header) const override;
        void onReceiveStart(const Nolvex::XmlString& header) const override;
        void onReceiveEnd(const Nolvex::XmlString& header) const override;

    private:
        Reception& m_reception;
    };

    void run();
    void serve();
    void receiveOne();
    void beginBody(const Nolvex::XmlString& header);
    std::string refusalOf(const Nolvex::XmlString& header) const;
    Nolvex::String accept(const Nolvex::Wx::Legacy::ReceivedData& message);
    Nolvex::String acceptText(const Nolvex::XmlString& text);
    Nolvex::String acceptOffer(const Nolvex::XmlString& offer);
    Nolvex::String acceptFile(const Nolvex::XmlString& header);
    void answer(const Nolvex::String& word);
    void removePart();

    Nolvex::Wx::Legacy::TcpSocket m_connection;
    IncomingFolder& m_folder;
    Ledger& m_ledger;
    Hooks m_hooks{*this};
    std::filesystem::path m_part; // the file that is being received, or empty
    std::unique_ptr<ProgressBar> m_bar;
    bool m_bodyBegan = false;
    std::string m_refusal;           // why the current body is refused, or empty
    std::chrono::seconds m_patience; // how long the sender may be silent until the next message
    bool m_expectsFile = false;      // the sender was told that its file is welcome
    std::atomic<bool> m_ending = false;
    std::atomic<bool> m_ended = false;
    std::thread m_thread; // declared last, because it uses all other members
};
