#include "component.h"

#include <gtest/gtest.h>

#include <memory>

using namespace oaCommon;
using test::Component;
using test::IAnswer;

namespace {

/// Switches counting off for the scope.
class UncountedReferences {
public:
    UncountedReferences() { IBase::s_refCountDisabled = true; }
    ~UncountedReferences() { IBase::s_refCountDisabled = false; }
    UncountedReferences(const UncountedReferences&) = delete;
    UncountedReferences& operator=(const UncountedReferences&) = delete;
};

} // namespace

TEST(PlugInBase, CountsFromZeroAndDeletesItselfAtZero) {
    auto* component = new Component; // the last release deletes it
    EXPECT_EQ(component->addRef(), 0u);
    EXPECT_EQ(component->addRef(), 1u);
    EXPECT_EQ(component->release(), 1u);
    EXPECT_EQ(Component::alive, 1);
    EXPECT_EQ(component->release(), 0u);
    EXPECT_EQ(Component::alive, 0);
}

TEST(PlugInBase, StartsWithTheCountItIsGiven) {
    auto* component = new Component(2); // the last release deletes it
    EXPECT_EQ(component->release(), 1u);
    EXPECT_EQ(component->release(), 0u);
    EXPECT_EQ(Component::alive, 0);
}

TEST(PlugInBase, AnswersOneWhenAskedForItsCount) {
    const auto component = std::make_unique<Component>();
    EXPECT_EQ(component->getRefCount(), 1u);
    component->addRef();
    component->addRef();
    EXPECT_EQ(component->getRefCount(), 1u);
}

TEST(PlugInBase, CountsNothingWhileCountingIsOff) {
    const auto component = std::make_unique<Component>(1);
    {
        const UncountedReferences off;
        EXPECT_EQ(component->addRef(), 1u);
        EXPECT_EQ(component->release(), 1u);
        EXPECT_EQ(component->release(), 1u);
    }
    EXPECT_EQ(component->addRef(), 1u);
}

TEST(PlugInBase, AnswersItselfForItsInterfaces) {
    const auto component = std::make_unique<Component>(1);
    for (const Guid& id : {IBase::getId(), IAnswer::getId()}) {
        void* found = nullptr;
        EXPECT_EQ(component->queryInterface(id, &found), IBase::cOK);
        EXPECT_EQ(static_cast<IAnswer*>(found)->answer(), 42);
    }
    EXPECT_EQ(component->addRef(), 3u);
}

TEST(PlugInBase, AnswersNothingForAnotherInterface) {
    const auto component = std::make_unique<Component>(1);
    const Guid foreign = {7, 7, 7, {7, 7, 7, 7, 7, 7, 7, 7}};
    void* found = component.get();
    EXPECT_EQ(component->queryInterface(foreign, &found), IBase::cNoInterface);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(component->addRef(), 1u);
}
