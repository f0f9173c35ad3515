#pragma once

#include <oa/oaCommon.h>
#include <oa/oaCommonPlugInBase.inl>
#include <oa/oaCommonSPtr.inl>

namespace test {

/// An interface of a plug-in with one operation of its own.
class IAnswer : public oaCommon::IBase {
public:
    virtual int answer() const = 0;

    static const oaCommon::Guid& getId() {
        static const oaCommon::Guid id = {42, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
        return id;
    }
};

/// Counts how many of it there are.
class Component : public oaCommon::PlugInBase<IAnswer> {
public:
    explicit Component(unsigned int refCount = 0) : PlugInBase(refCount) { ++alive; }
    ~Component() override { --alive; }

    int answer() const override { return 42; }

    inline static int alive = 0;
};

} // namespace test
