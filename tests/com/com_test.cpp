// What no object of the components shows: one that fails without a word, and a reference that is given to itself.
#include "com/counted.h"
#include "com/object.h"

#include <gtest/gtest.h>

namespace opd::com {
namespace {

int alive = 0;

/// Explains one of its failures and not the others; "Number" is 42.
class Failing final : public Counted<ILateBound> {
  public:
    Failing() : Counted(iidLateBound) { ++alive; }
    ~Failing() override { --alive; }

    HResult Invoke(const char* member, InvokeKind, const Variant*, std::size_t, Variant* result) override {
        const std::string name{member};
        *result = std::int32_t{42};
        if (name == "Explained")
            setLastErrorText("The doctor is not on duty.");
        return name == "Number" ? ok : name == "Explained" ? errorFail : errorMemberNotFound;
    }
};

TEST(Object, AFailureCarriesItsOwnDescriptionAndAResultOfAnotherKindIsNotTaken) {
    const Object object{Ref<IUnknown>::taking(new Failing).get()};
    const auto failureOf = [&](const char* member) {
        try {
            object.call(member);
        } catch (const Error& error) {
            return std::pair{error.result(), std::string{error.what()}};
        }
        return std::pair{ok, std::string{}};
    };
    EXPECT_EQ(failureOf("Explained"), std::pair(errorFail, std::string{"The doctor is not on duty."}));
    EXPECT_EQ(failureOf("Nothing"), std::pair(errorMemberNotFound, std::string{"The member \"Nothing\" failed."}));
    EXPECT_EQ(object.text("Number"), "");
    EXPECT_FALSE(object.flag("Number", {}));
    EXPECT_THROW(object.object("Number"), Error);
    EXPECT_THROW(Object{nullptr}, Error);
    EXPECT_THROW(Object{}.call("Any"), Error);
}

TEST(Ref, CountsEveryHolderOnce) {
    auto first = Ref<IUnknown>::taking(new Failing);
    {
        Ref<IUnknown> second = first;
        Ref<IUnknown> third = std::move(second);
        second = third;
        third = *&third;
        EXPECT_EQ(first->AddRef(), 4U);
        EXPECT_EQ(first->Release(), 3U);
    }
    EXPECT_EQ(alive, 1);
    first = {};
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace opd::com
