// A module with several classes.

#include "common/component.h"

#include <oa/oaCommon.h>

namespace {

using oaCommon::Factory;
using test::IAnswer;

class Answer : public oaCommon::PlugInBase<IAnswer> {
public:
    int answer() const override { return 42; }

    static Factory<Answer> factory;
    static Factory<Answer> secondFactory;
};

/// Answers how many of its class there are.
class Count : public oaCommon::PlugInBase<IAnswer> {
public:
    Count() { ++alive(); }
    ~Count() override { --alive(); }

    int answer() const override { return alive(); }

private:
    static int& alive() {
        static int count = 0;
        return count;
    }
};

class Failing : public oaCommon::PlugInBase<IAnswer> {
public:
    Failing() { throw oaCommon::ExceptionBase(17, "the answer is not known yet"); }

    int answer() const override { return 0; }
};

/// Fails with an exception that has no text.
class FailingSilently : public oaCommon::PlugInBase<IAnswer> {
public:
    FailingSilently() {
        struct Silence : oaCommon::ExceptionBase {
            using ExceptionBase::ExceptionBase;
            const char* getMsg() const override { return nullptr; }
        };
        throw Silence(18, "");
    }

    int answer() const override { return 0; }
};

Factory<Answer> Answer::factory("answer");
Factory<Answer> Answer::secondFactory("answer_too");
Factory<Answer> nonAscii("größe");
Factory<Count> countFactory("count");
Factory<Failing> failingFactory("failing");
Factory<FailingSilently> failingSilentlyFactory("failing_silently");

} // namespace

extern "C" long getClassObject(const char* classID, const oaCommon::Guid& interfaceID, void** ptr) {
    return oaCommon::FactoryBase::getClassObject(classID, interfaceID, ptr);
}
