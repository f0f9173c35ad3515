#include "base/src/observer_list.h"

#include <oa/oaBase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

using namespace OpenAccess_4;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Observes nothing in particular; calls back the test.
class Listener : public oaBaseObserver {
public:
    using List = impl::ObserverList<Listener>;

    explicit Listener(oaUInt4 priority, std::function<void()> callback, oaBoolean enabled = true)
        : oaBaseObserver(priority, enabled), callback_(std::move(callback)) {
        List::instance().add(*this);
    }
    ~Listener() override { List::instance().remove(*this); }

    virtual void onNews() { callback_(); }

private:
    std::function<void()> callback_;
};

void notify() {
    Listener::List::instance().notify([](Listener& listener) { listener.onNews(); });
}

class ObserverList : public ::testing::Test {
protected:
    /// A callback that writes down that it was called.
    auto saying(std::string what) {
        return [this, what] { said.push_back(what); };
    }

    std::vector<std::string> said;
};

} // namespace

TEST(BaseObserver, KeepsPriorityAndWhetherItIsEnabled) {
    Listener listener(7, [] {});
    EXPECT_EQ(listener.getPriority(), 7u);
    EXPECT_TRUE(listener.isEnabled());
    listener.enable(false);
    EXPECT_FALSE(listener.isEnabled());
    EXPECT_FALSE(Listener(
                     0, [] {}, false)
                     .isEnabled());
}

TEST(BaseObserver, HasAVersionForEachClass) {
    EXPECT_EQ(oaObserverVersion<oaObject>::value, 0u);
    EXPECT_EQ(oaObserverVersion<oaLibDefList>::value, 1u);
    EXPECT_EQ(oaObserverVersion<oaTech>::value, 2u);
    EXPECT_TRUE((std::is_same_v<oaObserver<oaTech>, oaVersionedObserver<oaTech, 2>>));
}

TEST_F(ObserverList, CallsNobodyWhenThereIsNone) {
    EXPECT_TRUE(Listener::List::instance().isEmpty());
    notify();
    EXPECT_THAT(said, IsEmpty());
}

TEST_F(ObserverList, CallsByPriorityThenByAge) {
    const Listener late(0xffffffffu, saying("last"));
    const Listener second(5, saying("5, older"));
    const Listener third(5, saying("5, younger"));
    const Listener first(0, saying("first"));
    notify();
    EXPECT_THAT(said, ElementsAre("first", "5, older", "5, younger", "last"));
}

TEST_F(ObserverList, LeavesOutWhatIsNotEnabled) {
    Listener quiet(1, saying("quiet"), false);
    const Listener loud(2, saying("loud"));
    notify();
    quiet.enable(true);
    notify();
    EXPECT_THAT(said, ElementsAre("loud", "quiet", "loud"));
}

TEST_F(ObserverList, ForgetsWhatIsDestroyed) {
    auto gone = std::make_unique<Listener>(1, saying("gone"));
    const Listener here(1, saying("here"));
    gone.reset();
    notify();
    EXPECT_THAT(said, ElementsAre("here"));
}

TEST_F(ObserverList, DoesNotCallWhatAnotherHasDestroyedOrDisabled) {
    std::unique_ptr<Listener> destroyed;
    std::unique_ptr<Listener> disabled;
    const Listener first(1, [&] {
        saying("first")();
        destroyed.reset();
        disabled->enable(false);
    });
    destroyed = std::make_unique<Listener>(2, saying("destroyed"));
    disabled = std::make_unique<Listener>(3, saying("disabled"));
    const Listener last(4, saying("last"));
    notify();
    EXPECT_THAT(said, ElementsAre("first", "last"));
}

TEST_F(ObserverList, GoesOnAfterOneThatDestroysItselfAndThoseBeforeIt) {
    std::unique_ptr<Listener> before = std::make_unique<Listener>(1, saying("before"));
    std::unique_ptr<Listener> itself;
    itself = std::make_unique<Listener>(2, [&] {
        saying("itself")();
        before.reset();
        itself.reset();
    });
    const Listener after(3, saying("after"));
    notify();
    notify();
    EXPECT_THAT(said, ElementsAre("before", "itself", "after", "after"));
}

TEST_F(ObserverList, CallsWhatIsMadeMeanwhileFromTheNextTimeOn) {
    std::vector<std::unique_ptr<Listener>> made;
    const Listener maker(2, [&] {
        saying("maker")();
        if (made.empty())
            for (const oaUInt4 priority : {1u, 2u, 3u})
                made.push_back(std::make_unique<Listener>(
                    priority, saying("made " + std::to_string(priority))));
    });
    const Listener last(4, saying("last"));
    notify();
    EXPECT_THAT(said, ElementsAre("maker", "last"));
    said.clear();
    notify();
    EXPECT_THAT(said, ElementsAre("made 1", "maker", "made 2", "made 3", "last"));
}

TEST_F(ObserverList, NotifiesWhileItNotifies) {
    bool inner = false;
    const Listener first(1, [&] {
        saying(inner ? "inner" : "outer")();
        if (!std::exchange(inner, true))
            notify();
    });
    const Listener last(2, saying("last"));
    notify();
    EXPECT_THAT(said, ElementsAre("outer", "inner", "last", "last"));
}

TEST_F(ObserverList, TellsTheOthersBeforeAnExceptionGoesOn) {
    const Listener first(1, [] { throw std::runtime_error("the first failure"); });
    const Listener second(2, [] { throw std::runtime_error("the second failure"); });
    const Listener last(3, saying("last"));
    try {
        notify();
        ADD_FAILURE() << "the exception is lost";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the first failure");
    }
    EXPECT_THAT(said, ElementsAre("last"));
}

TEST_F(ObserverList, AsksUntilOneRefuses) {
    const Listener first(1, saying("first"));
    const Listener second(2, saying("second"));
    const Listener third(3, saying("third"));
    const auto refusingAt = [&](oaUInt4 priority) {
        return Listener::List::instance().ask([&](Listener& listener) {
            listener.onNews();
            return listener.getPriority() != priority;
        });
    };
    EXPECT_TRUE(refusingAt(0));
    EXPECT_THAT(said, ElementsAre("first", "second", "third"));
    said.clear();
    EXPECT_FALSE(refusingAt(2));
    EXPECT_THAT(said, ElementsAre("first", "second"));
}
