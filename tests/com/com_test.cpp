#include "com/counted.h"
#include "com/object.h"

#include <gtest/gtest.h>

namespace opd::com {
namespace {

int alive = 0;

/// A late-bound object with a property "Name", a method "Twice", a child, and members that fail.
class Small final : public Counted<ILateBound> {
  public:
    Small() : Counted(iidLateBound) { ++alive; }
    ~Small() override { --alive; }

    HResult Invoke(const char* member, InvokeKind kind, const Variant* arguments, std::size_t count,
                   Variant* result) override {
        const std::string name{member};
        if (name == "Name" && kind == InvokeKind::Set && count == 1) {
            m_name = std::get<std::string>(arguments[0]);
            return ok;
        }
        if (name == "Name" && kind == InvokeKind::Get) {
            *result = m_name;
            return ok;
        }
        if (name == "Twice" && kind == InvokeKind::Call && count == 1) {
            *result = 2 * std::get<std::int32_t>(arguments[0]);
            return ok;
        }
        if (name == "Is" && kind == InvokeKind::Call) {
            *result = count == 1 && arguments[0] == Variant{m_name};
            return ok;
        }
        if (name == "Child" && kind == InvokeKind::Get) {
            *result = Ref<IUnknown>::taking(new Small);
            return ok;
        }
        if (name == "Explained") {
            setLastErrorText("The doctor is not on duty.");
            return errorFail;
        }
        return errorMemberNotFound;
    }

  private:
    std::string m_name;
};

struct LateBound : testing::Test {
    Object object{Ref<IUnknown>::taking(new Small).get()};
    ~LateBound() override {
        object = {};
        EXPECT_EQ(alive, 0) << "a reference was not given back";
    }
};

TEST_F(LateBound, MembersAreReachedByName) {
    object.set("Name", std::string{"PEÑA"});
    EXPECT_EQ(object.text("Name"), "PEÑA");
    EXPECT_EQ(object.call("Twice", {21}), Variant{42});
    EXPECT_TRUE(object.flag("Is", {std::string{"PEÑA"}}));
    EXPECT_FALSE(object.flag("Is", {std::string{"CRUZ"}}));
}

TEST_F(LateBound, ResultsOfAnotherKindAreNotTaken) {
    EXPECT_EQ(object.text("Child"), "");
    EXPECT_FALSE(object.flag("Twice", {1}));
    EXPECT_THROW(object.object("Name"), Error);
}

TEST_F(LateBound, AFailureCarriesTheObjectsOwnDescription) {
    try {
        object.call("Explained");
        FAIL() << "the failure was lost";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "The doctor is not on duty.");
        EXPECT_EQ(error.result(), errorFail);
    }
    try {
        object.get("Nothing");
        FAIL() << "the failure was lost";
    } catch (const Error& error) {
        EXPECT_NE(std::string{error.what()}.find("Nothing"), std::string::npos) << "an older description was taken";
        EXPECT_EQ(error.result(), errorMemberNotFound);
    }
}

TEST_F(LateBound, AChildLivesAsLongAsSomebodyHoldsIt) {
    {
        const Object child = object.object("Child");
        EXPECT_EQ(alive, 2);
        const Object second = child; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
        EXPECT_EQ(second.text("Name"), "");
    }
    EXPECT_EQ(alive, 1);
}

TEST(Object, NothingHasNoMembers) {
    EXPECT_THROW(Object{nullptr}, Error);
    EXPECT_FALSE(Object{});
    EXPECT_THROW(Object{}.call("Any"), Error);
}

TEST(Ref, CountsEveryHolderOnce) {
    auto first = Ref<IUnknown>::taking(new Small);
    {
        Ref<IUnknown> second = first;
        Ref<IUnknown> third = std::move(second);
        second = third;
        third = *&third;
        const auto again = queried<ILateBound>(first.get(), iidLateBound);
        EXPECT_TRUE(again);
        EXPECT_EQ(first->AddRef(), 5U);
        EXPECT_EQ(first->Release(), 4U);
        EXPECT_FALSE(queried<IClassFactory>(first.get(), iidClassFactory));
        EXPECT_FALSE(queried<ILateBound>(nullptr, iidLateBound));
        EXPECT_EQ(first->QueryInterface(iidUnknown, nullptr), errorPointer);
    }
    EXPECT_EQ(first->AddRef(), 2U);
    EXPECT_EQ(first->Release(), 1U);
    first = {};
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace opd::com
