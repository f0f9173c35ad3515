#include "component.h"

#include <oa/oaPlugIn.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using namespace oaCommon;
using test::Component;
using test::IAnswer;

namespace {

const Guid kUnknownInterface = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

Factory<Component> first("component");
Factory<Component> second("component_too");

IFactory* factoryOf(const char* classID) {
    void* factory = nullptr;
    EXPECT_EQ(FactoryBase::getClassObject(classID, IFactory::getId(), &factory), IBase::cOK);
    return static_cast<IFactory*>(factory);
}

} // namespace

TEST(Factory, IsFoundByTheNameOfItsClass) {
    EXPECT_EQ(factoryOf("component"), &first);
    EXPECT_EQ(factoryOf("component_too"), &second);
}

TEST(Factory, IsThereWhileItLives) {
    void* found = &found;
    {
        const Factory<Component> passing("passing");
        EXPECT_EQ(factoryOf("passing"), &passing);
        const Factory<Component> younger("younger");
    }
    EXPECT_EQ(FactoryBase::getClassObject("passing", IFactory::getId(), &found), IBase::cFail);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(factoryOf("component"), &first);
}

TEST(Factory, IsNotFoundWithoutItsInterface) {
    void* found = &found;
    EXPECT_EQ(FactoryBase::getClassObject("component", IAnswer::getId(), &found),
              IBase::cNoInterface);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(FactoryBase::getClassObject("component", IBase::getId(), &found), IBase::cOK);
    EXPECT_EQ(found, static_cast<IBase*>(&first));
}

TEST(Factory, MakesObjectsWithOneReference) {
    void* made = nullptr;
    ASSERT_EQ(first.createInstance(nullptr, IAnswer::getId(), &made), IBase::cOK);
    auto* const answer = static_cast<IAnswer*>(made);
    EXPECT_EQ(answer->answer(), 42);
    EXPECT_EQ(Component::alive, 1);
    EXPECT_EQ(answer->release(), 0u);
    EXPECT_EQ(Component::alive, 0);
}

TEST(Factory, KeepsNothingOfWhatLacksTheInterface) {
    void* made = &made;
    EXPECT_EQ(first.createInstance(nullptr, kUnknownInterface, &made), IBase::cNoInterface);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(Component::alive, 0);
}

TEST(Factory, RefusesWhatIsReserved) {
    void* made = &made;
    EXPECT_EQ(first.createInstance(&second, IAnswer::getId(), &made), IBase::cFail);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(Component::alive, 0);
}

TEST(Factory, IsNotCounted) {
    EXPECT_EQ(first.addRef(), 1u);
    EXPECT_EQ(first.getRefCount(), 1u);
    EXPECT_EQ(first.release(), 1u);
    EXPECT_EQ(factoryOf("component"), &first);
}

TEST(PlugInNames, AreThoseOfTheKernel) {
    EXPECT_TRUE((std::is_same_v<oaPlugIn::Factory<Component>, Factory<Component>>));
    EXPECT_TRUE((std::is_same_v<oaPlugIn::PlugInBase<IAnswer>, PlugInBase<IAnswer>>));
}
