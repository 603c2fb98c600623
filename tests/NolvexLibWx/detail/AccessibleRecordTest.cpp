// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/AccessibleRecord.h"

#include "support/ExceptionWatch.h"
#include "support/FrameFixture.h"

#include <limits>
#include <vector>

using namespace Nolvex;
using Wx::AccessibleControl;
using Wx::AccessibleRecord;
using Wx::AccessibleRole;
using Wx::AccessibleState;
using Wx::AccessibleValue;

namespace {

/// What a FakeAccount tells, and what was asked of it.
struct Fake
{
    String name = L"account";
    String description;
    Flags<AccessibleState> states;
    Optional<AccessibleValue> value;
    Optional<int> selected;
    int items = 0;
    std::vector<int> actions;
    std::function<void()> acting;
    String valueText;
    std::vector<double> values;
    std::vector<int> selections;
    int made = 0;
};

Fake fake;

class FakeAccount : public AccessibleControl
{
public:
    AccessibleRole role() const override { return AccessibleRole::SPINNER; }

    String name() const override { return fake.name; }

    String description() const override { return fake.description; }

    Flags<AccessibleState> states() const override { return fake.states; }

    Array<String> actions() const override { return {L"press", L"open"}; }

    void doAction(int index) override
    {
        fake.actions.push_back(index);
        if (fake.acting)
            fake.acting();
    }

    String valueText() const override { return fake.valueText; }

    Optional<AccessibleValue> value() const override { return fake.value; }

    void setValue(double value) override { fake.values.push_back(value); }

    int itemCount() const override { return fake.items; }

    Optional<int> selectedItem() const override { return fake.selected; }

    void selectItem(int index) override { fake.selections.push_back(index); }
};

struct AccessibleRecordTest : Tests::FrameFixture
{
    // The record lives longer than the control, as the records of both systems do.
    std::unique_ptr<AccessibleRecord> record = std::make_unique<AccessibleRecord>(*panel);

    AccessibleRecordTest()
    {
        fake = {};
        record->setMaker([](wxWindow&) -> std::unique_ptr<AccessibleControl> {
            ++fake.made;
            return std::make_unique<FakeAccount>();
        });
    }
};

constexpr double INFINITE_NUMBER = std::numeric_limits<double>::infinity();

} // namespace

TEST_F(AccessibleRecordTest, account_isMadeWhenFirstNeededAndKept)
{
    EXPECT_EQ(fake.made, 0);
    const AccessibleControl* const account = record->account();
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(record->account(), account);
    EXPECT_EQ(fake.made, 1);
}

TEST_F(AccessibleRecordTest, newMaker_replacesTheAccount)
{
    record->account();
    record->setMaker([](wxWindow&) { return std::unique_ptr<AccessibleControl>(); });
    EXPECT_EQ(record->account(), nullptr);
    EXPECT_EQ(record->name(), String());
}

TEST_F(AccessibleRecordTest, textsFromOutside_goBeforeThoseOfTheAccount)
{
    fake.description = L"of the account";
    EXPECT_EQ(record->name(), L"account");
    EXPECT_EQ(record->description(), L"of the account");
    record->setName(L"set");
    record->setDescription(L"of the tooltip");
    EXPECT_EQ(record->name(), L"set");
    EXPECT_EQ(record->description(), L"of the tooltip");
    record->setName({});
    record->setDescription({});
    EXPECT_EQ(record->name(), L"account");
    EXPECT_EQ(record->description(), L"of the account");
}

TEST_F(AccessibleRecordTest, windowWithoutAccount_hasOnlyTheTextsFromOutside)
{
    AccessibleRecord plain(*panel);
    EXPECT_EQ(plain.account(), nullptr);
    EXPECT_EQ(plain.name(), String());
    plain.setName(L"set");
    EXPECT_EQ(plain.name(), L"set");
    EXPECT_FALSE(plain.doAction(0));
    EXPECT_FALSE(plain.setValue(1));
    EXPECT_FALSE(plain.selectItem(0));
}

TEST_F(AccessibleRecordTest, controlThatIsHiddenOrDisabled_isNotOperable)
{
    EXPECT_FALSE(record->isOperable()) << "the frame is hidden";
    showFrame();
    EXPECT_TRUE(record->isOperable());
    frame->Disable();
    EXPECT_FALSE(record->isOperable());
    EXPECT_FALSE(record->doAction(0));
    frame->Enable();
    panel->Hide();
    EXPECT_FALSE(record->isOperable());
}

TEST_F(AccessibleRecordTest, doAction_runsLaterAndOnlyActionsThatExist)
{
    showFrame();
    EXPECT_FALSE(record->doAction(-1));
    EXPECT_FALSE(record->doAction(2));
    EXPECT_TRUE(record->doAction(1));
    EXPECT_TRUE(fake.actions.empty());
    EXPECT_TRUE(Tests::pumpUntil([] { return !fake.actions.empty(); }));
    EXPECT_EQ(fake.actions, std::vector<int>{1});
}

TEST_F(AccessibleRecordTest, requestToAControlDisabledMeanwhile_isDropped)
{
    showFrame();
    EXPECT_TRUE(record->doAction(0));
    panel->Disable();
    Tests::pumpEvents();
    EXPECT_TRUE(fake.actions.empty());
}

TEST_F(AccessibleRecordTest, requestToAControlDestroyedMeanwhile_isDropped)
{
    showFrame();
    EXPECT_TRUE(record->doAction(0));
    delete panel;
    Tests::pumpEvents();
    EXPECT_TRUE(fake.actions.empty());
    EXPECT_EQ(record->control(), nullptr);
    EXPECT_EQ(record->account(), nullptr);
    EXPECT_FALSE(record->isOperable());
}

TEST_F(AccessibleRecordTest, setValue_isBroughtIntoTheBounds)
{
    fake.value = AccessibleValue{5, 2, 10, 1, L"5"};
    showFrame();
    for (const double value : {7.5, -3.0, 11.0, INFINITE_NUMBER, -INFINITE_NUMBER})
        EXPECT_TRUE(record->setValue(value));
    EXPECT_TRUE(Tests::pumpUntil([] { return fake.values.size() == 5; }));
    EXPECT_EQ(fake.values, (std::vector<double>{7.5, 2, 10, 10, 2}));
}

TEST_F(AccessibleRecordTest, setValue_withoutSense_isRefused)
{
    showFrame();
    EXPECT_FALSE(record->setValue(1)) << "the control has no value";
    fake.value = AccessibleValue{5, 2, 10, 1, L"5"};
    EXPECT_FALSE(record->setValue(std::numeric_limits<double>::quiet_NaN()));
    fake.states = AccessibleState::READ_ONLY;
    EXPECT_FALSE(record->setValue(7));
    Tests::pumpEvents();
    EXPECT_TRUE(fake.values.empty());
}

TEST_F(AccessibleRecordTest, selectItem_takesItemsThatStillExist)
{
    fake.items = 3;
    showFrame();
    EXPECT_FALSE(record->selectItem(-1));
    EXPECT_FALSE(record->selectItem(3));
    EXPECT_TRUE(record->selectItem(0));
    EXPECT_TRUE(record->selectItem(2));
    fake.items = 2; // another event takes an item away before the requests are served
    EXPECT_TRUE(Tests::pumpUntil([] { return !fake.selections.empty(); }));
    Tests::pumpEvents();
    EXPECT_EQ(fake.selections, std::vector<int>{0});
}

TEST_F(AccessibleRecordTest, takeChanges_beforeTheFirstAnnouncement_findsNone)
{
    fake.items = 4;
    const AccessibleRecord::Changes changes = record->takeChanges();
    EXPECT_FALSE(changes.name || changes.description || changes.value || changes.selection);
    EXPECT_EQ(changes.items, 0);
    EXPECT_EQ(changes.states.bits(), 0u);
}

TEST_F(AccessibleRecordTest, takeChanges_findsEachDifferenceOnce)
{
    fake.items = 2;
    fake.states = AccessibleState::CHECKABLE;
    record->markAnnounced();
    fake.name = L"renamed";
    fake.description = L"described";
    fake.value = AccessibleValue{1, 0, 2, 1, L"1"};
    fake.selected = 1;
    fake.items = 5;
    fake.states = AccessibleState::CHECKED;

    const AccessibleRecord::Changes changes = record->takeChanges();
    EXPECT_TRUE(changes.name && changes.description && changes.value && changes.selection);
    EXPECT_EQ(changes.itemsBefore, 2);
    EXPECT_EQ(changes.items, 5);
    EXPECT_EQ(changes.states.bits(), 3u) << "one state came and one went";

    const AccessibleRecord::Changes none = record->takeChanges();
    EXPECT_FALSE(none.name || none.description || none.value || none.selection);
    EXPECT_EQ(none.itemsBefore, 5);
    EXPECT_EQ(none.items, 5);
    EXPECT_EQ(none.states.bits(), 0u);
}

TEST_F(AccessibleRecordTest, takeChanges_findsAnotherTextOfTheValue)
{
    fake.valueText = L"#000000";
    record->markAnnounced();
    EXPECT_FALSE(record->takeChanges().value);
    fake.valueText = L"#804020";
    EXPECT_TRUE(record->takeChanges().value);
    EXPECT_FALSE(record->takeChanges().value);
}

TEST_F(AccessibleRecordTest, exceptionOfAnAction_reachesTheMainLoop)
{
    showFrame();
    Tests::ExceptionWatch watch;
    fake.acting = [&] { watch.fail("broken action"); };
    EXPECT_TRUE(record->doAction(0));
    EXPECT_TRUE(Tests::pumpUntil([&] { return !watch.caught().empty(); }));
    EXPECT_EQ(watch.caught(), "broken action");
}
