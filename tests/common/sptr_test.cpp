#include "component.h"

#include <gtest/gtest.h>

#include <utility>

using namespace oaCommon;
using test::Component;
using test::IAnswer;

TEST(SPtr, IsEmptyAtFirst) {
    const SPtr<IAnswer> empty;
    EXPECT_TRUE(!empty);
    EXPECT_FALSE(static_cast<bool>(empty));
    EXPECT_EQ(empty.getRef(), nullptr);
    EXPECT_TRUE(!SPtr<IAnswer>(nullptr));
}

TEST(SPtr, HoldsAReferenceWhileItLives) {
    {
        const SPtr<IAnswer> held(new Component);
        EXPECT_EQ(held->answer(), 42);
        EXPECT_EQ((*held).answer(), 42);
        EXPECT_TRUE(static_cast<bool>(held) && !!held);
        EXPECT_EQ(Component::alive, 1);
    }
    EXPECT_EQ(Component::alive, 0);
}

TEST(SPtr, CopiesShareTheObject) {
    SPtr<IAnswer> copy;
    {
        const SPtr<IAnswer> held(new Component);
        copy = held;
        EXPECT_TRUE(copy == held);
        EXPECT_EQ(copy.getRef(), held.getRef());
    }
    EXPECT_EQ(Component::alive, 1);
    copy = SPtr<IAnswer>();
    EXPECT_EQ(Component::alive, 0);
}

TEST(SPtr, MovedFromIsEmpty) {
    SPtr<IAnswer> held(new Component);
    SPtr<IAnswer> moved(std::move(held));
    EXPECT_TRUE(!held); // a moved-from holder is empty
    EXPECT_EQ(moved->answer(), 42);
    held = std::move(moved);
    EXPECT_EQ(Component::alive, 1);
    EXPECT_TRUE(!moved);
}

TEST(SPtr, ReplacesWhatItHeld) {
    SPtr<IAnswer> held(new Component);
    SPtr<IAnswer> other(new Component);
    EXPECT_TRUE(held != other);
    held = std::move(other);
    EXPECT_EQ(Component::alive, 1);
    held = held.getRef();
    EXPECT_EQ(Component::alive, 1);
    EXPECT_EQ(held->answer(), 42);
}

TEST(SRef, HoldsAReferenceAsWell) {
    {
        const SRef<IAnswer> held(new Component);
        const SRef<IAnswer> copy(held);
        EXPECT_EQ(copy.getRef()->answer(), 42);
    }
    EXPECT_EQ(Component::alive, 0);
}
