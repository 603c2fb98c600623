// SPDX-License-Identifier: MIT
// Tests what the portal may answer.
#include "PortalFixture.h"

#include <array>
#include <filesystem>

using namespace Nolvex;
using Platform::DesktopAnswer;
using Platform::ScreenPortal;
using Tests::encodePng;
using Tests::FakePortal;
using Tests::LONG;
using Tests::uriOf;
using Wx::ScreenCaptureFailure;

using ScreenPortalTest = Tests::PortalFixture;

TEST_F(ScreenPortalTest, picture_arrivesAndItsFileIsRemoved)
{
    std::atomic<bool> isPlain = false;
    answerBy([this, &isPlain](FakePortal::Call call) {
        isPlain = call.isPlain();
        call.respondWithUri(pictureUri());
    });
    ask();
    expectPicture();
    EXPECT_TRUE(isPlain);
    EXPECT_EQ(portal->calls(), 1);
    EXPECT_TRUE(portal->closed().empty());
    EXPECT_FALSE(std::filesystem::exists(folder.file(L"shot.png").native()));
}

TEST_F(ScreenPortalTest, refusalByTheUser_isRefused)
{
    expectFailureOf("(uint32 1, @a{sv} {})", ScreenCaptureFailure::REFUSED);
}

TEST_F(ScreenPortalTest, refusalWithAPicture_isRefusedAndThePictureStays)
{
    const Io::Path file = folder.file(L"shot.png", encodePng(4, 2));
    expectFailureOf("(uint32 1, {'uri': <'" + uriOf(file) + "'>})", ScreenCaptureFailure::REFUSED);
    EXPECT_TRUE(std::filesystem::exists(file.native()));
}

TEST_F(ScreenPortalTest, otherEnd_isAFailure)
{
    expectFailureOf("(uint32 2, @a{sv} {})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, unknownCode_isAFailure)
{
    expectFailureOf("(uint32 77, {'uri': <'file:///tmp/a.png'>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, missingAddress_isAFailure)
{
    expectFailureOf("(uint32 0, @a{sv} {})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, addressOfAnotherType_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <7>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, answerOfAnotherType_isAFailure)
{
    expectFailureOf("('file:///tmp/a.png',)", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, emptyAnswer_isAFailure)
{
    expectFailureOf("()", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, addressThatIsNoFile_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <'https://example.org/a.png'>})", ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, fileThatIsGone_isAFailure)
{
    expectFailureOf("(uint32 0, {'uri': <'" + uriOf(folder.file(L"gone.png")) + "'>})",
                    ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, secondAnswer_isIgnored)
{
    answerBy([this](FakePortal::Call call) {
        call.respondWithUri(pictureUri());
        call.respond(call.handle(), "(uint32 1, @a{sv} {})");
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerBeforeTheHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        call.respond(call.handle(), pictureValues());
        call.giveHandle(call.handle());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerUnderAnotherHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        const std::string other = FakePortal::otherHandle(4);
        call.giveHandle(other);
        call.respond(other, pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answerUnderAnotherHandleBeforeTheHandle_counts)
{
    answerBy([this](FakePortal::Call call) {
        const std::string other = FakePortal::otherHandle(4);
        call.respond(other, pictureValues());
        call.giveHandle(other);
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answersToOtherQuestions_areIgnored)
{
    answerBy([this](FakePortal::Call call) {
        for (int i = 0; i < 40; ++i)
            call.respond(FakePortal::otherHandle(i), "(uint32 1, @a{sv} {})");
        call.giveHandle(call.handle());
        call.respond(FakePortal::otherHandle(7), "(uint32 1, @a{sv} {})");
        call.respond(call.handle(), pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, answersOfOtherPrograms_areIgnored)
{
    const FakePortal impostor(
        bus.address(), [](FakePortal::Call) {}, "org.example.Impostor");
    answerBy([this, &impostor](FakePortal::Call call) {
        call.giveHandle(call.handle());
        g_dbus_connection_emit_signal(impostor.connection(), call.caller().c_str(), call.handle().c_str(),
                                      "org.freedesktop.portal.Request", "Response",
                                      g_variant_new_parsed("(uint32 1, @a{sv} {})"), nullptr);
        g_dbus_connection_flush_sync(impostor.connection(), nullptr, nullptr);
        call.respond(call.handle(), pictureValues());
    });
    ask();
    expectPicture();
}

TEST_F(ScreenPortalTest, busWithoutAPortal_isUnavailable)
{
    ask();
    expectFailure(ScreenCaptureFailure::UNAVAILABLE);
}

TEST_F(ScreenPortalTest, portalWithoutScreenshots_isUnavailable)
{
    for (const char* error :
         {"org.freedesktop.DBus.Error.UnknownMethod", "org.freedesktop.DBus.Error.UnknownInterface",
          "org.freedesktop.DBus.Error.UnknownObject"}) {
        Tests::PortalAnswers unknown;
        portal.reset();
        answerBy([error](FakePortal::Call call) { call.fail(error); });
        const ScreenPortal asked(bus.address(), LONG, unknown.receiver());
        const Optional<DesktopAnswer> answer = unknown.first();
        ASSERT_TRUE(answer);
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), ScreenCaptureFailure::UNAVAILABLE) << error;
    }
}

TEST_F(ScreenPortalTest, callThatIsNotAllowed_isRefused)
{
    answerBy([](FakePortal::Call call) { call.fail("org.freedesktop.portal.Error.NotAllowed"); });
    ask();
    expectFailure(ScreenCaptureFailure::REFUSED);
}

TEST_F(ScreenPortalTest, callThatFails_isAFailure)
{
    answerBy([](FakePortal::Call call) { call.fail("org.freedesktop.portal.Error.Failed"); });
    ask();
    expectFailure(ScreenCaptureFailure::FAILED);
}

TEST_F(ScreenPortalTest, noBus_isUnavailable)
{
    for (const std::string& address : {std::string("unix:path=/nonexistent/bus"), std::string("nonsense"),
                                       std::string("unix:abstract=nolvex-without-a-listener")}) {
        Tests::PortalAnswers none;
        const ScreenPortal asked(address, LONG, none.receiver());
        const Optional<DesktopAnswer> answer = none.first();
        ASSERT_TRUE(answer);
        ASSERT_FALSE(*answer);
        EXPECT_EQ(answer->error(), ScreenCaptureFailure::UNAVAILABLE) << address;
    }
}

TEST_F(ScreenPortalTest, severalQuestions_getTheirOwnAnswers)
{
    answerBy([this, index = 0](FakePortal::Call call) mutable {
        if (index++ % 2 == 0)
            call.respondWithUri(uriOf(folder.file(L"shot" + std::to_wstring(index), encodePng(4, 2))));
        else
            call.fail("org.freedesktop.portal.Error.NotAllowed");
    });
    std::array<Tests::PortalAnswers, 6> all;
    Array<std::unique_ptr<ScreenPortal>> questions;
    for (Tests::PortalAnswers& own : all)
        questions.push_back(std::make_unique<ScreenPortal>(bus.address(), LONG, own.receiver()));
    int pictures = 0;
    for (Tests::PortalAnswers& own : all) {
        const Optional<DesktopAnswer> answer = own.first();
        ASSERT_TRUE(answer);
        pictures += *answer ? 1 : 0;
    }
    EXPECT_EQ(pictures, 3);
}
