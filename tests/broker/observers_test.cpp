#include "broker/observers.h"

#include <functional>

#include "design_fixture.h"

namespace pcellBrokerClient::test {

namespace {

class Observers : public DesignTest {
protected:
    /// How many of the four brokers have to be set up behind `change` that did not before.
    std::size_t setUpAfter(const std::function<void()>& change) {
        for (auto& [key, connection] : brokers_->connections) {
            connection.setUpNeeded = false;
        }
        change();
        std::size_t count = 0;
        for (const auto& [key, connection] : brokers_->connections) {
            count += connection.setUpNeeded ? 1 : 0;
        }
        return count;
    }

    const std::shared_ptr<Brokers>& brokers() const { return brokers_; }

private:
    std::shared_ptr<Brokers> brokers_ = std::make_shared<Brokers>();
};

} // namespace

TEST_F(Observers, OfLibrariesRequireSetUpOfEveryBroker) {
    const LibObserver observer(brokers());
    oa::oaLib* lib = nullptr;
    EXPECT_EQ(setUpAfter([&] { lib = oa::oaLib::create(name("new"), path("new").c_str()); }), 4U);
    EXPECT_EQ(setUpAfter([&] { lib->close(); }), 4U);
    EXPECT_EQ(setUpAfter([&] { lib = oa::oaLib::open(name("new"), path("new").c_str()); }), 4U);
    EXPECT_EQ(setUpAfter([&] { design("cell"); }), 0U);
    lib->close();
}

TEST_F(Observers, OfLibraryDefinitionsRequireSetUpOfEveryBroker) {
    const LibDefListObserver observer(brokers());
    ovalis::test::writeText(path("lib.defs"), "");
    EXPECT_EQ(setUpAfter([&] { oa::oaLibDefList::openLibs(path("lib.defs").c_str()); }), 4U);
    EXPECT_EQ(setUpAfter([] { oa::oaLibDefList::getTopList()->destroy(); }), 0U);
}

TEST_F(Observers, AreEnabledAndComeBeforeOthers) {
    const LibObserver libs(brokers());
    const LibDefListObserver lists(brokers());
    EXPECT_TRUE(libs.isEnabled());
    EXPECT_TRUE(lists.isEnabled());
    EXPECT_EQ(libs.getPriority(), 0U);
    EXPECT_EQ(lists.getPriority(), 0U);
}

} // namespace pcellBrokerClient::test
