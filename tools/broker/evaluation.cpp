#include "tools/broker/evaluation.h"

#include "platform/private_directory.h"
#include "tools/broker/talk.h"

#include <exception>
#include <new>
#include <vector>

#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

namespace broker {

namespace {

using namespace OpenAccess_4;

constexpr const char* unknownError = "unknown error";

/// A failure of the database that was told to its observers.
struct ReportedFailure {
    unsigned long long code;
    std::string message;
};

/// Keeps the first error of an evaluation; further ones go to standard error.
class ErrorCollector : public oaPcellObserver {
public:
    ErrorCollector() : oaPcellObserver(0) {}

    void onError(oaDesign*, const oaString& msg, oaPcellErrorTypeEnum type) override {
        const std::string message = static_cast<const oaChar*>(msg);
        if (failure_)
            say(message);
        else
            failure_ = ReportedFailure{static_cast<unsigned>(type), message};
    }

    void check() const {
        if (failure_)
            throw *failure_;
    }

private:
    std::optional<ReportedFailure> failure_;
};

/// What the database warns of while it reads library definitions.
class WarningPrinter : public oaObserver<oaLibDefList> {
public:
    WarningPrinter() : oaObserver<oaLibDefList>(0) {}

    oaBoolean onLoadWarnings(oaLibDefList*, const oaString& msg,
                             oaLibDefListWarningTypeEnum) override {
        say(static_cast<const oaChar*>(msg));
        return true;
    }
};

template <class Object>
std::vector<Object*> listOf(oaCollection<Object, Object> objects) {
    std::vector<Object*> list;
    oaIter<Object> next(objects);
    while (Object* object = next.getNext())
        list.push_back(object);
    return list;
}

// Masters that were changed on disk meanwhile are read again for the next evaluation.
void forgetDesigns() {
    for (oaDesign* design : listOf<oaDesign>(oaDesign::getOpenDesigns())) {
        if (design->isValid() && !design->isSubMaster())
            design->purge();
    }
    for (oaTech* tech : listOf<oaTech>(oaTech::getOpenTechs())) {
        if (tech->isValid())
            tech->purge();
    }
}

class DesignsOfEvaluation {
public:
    DesignsOfEvaluation() = default;
    ~DesignsOfEvaluation() {
        try {
            forgetDesigns();
        } catch (...) {
            say("designs of an evaluation could not be closed");
        }
    }
    DesignsOfEvaluation(const DesignsOfEvaluation&) = delete;
    DesignsOfEvaluation& operator=(const DesignsOfEvaluation&) = delete;
};

oaScalarName native(const std::string& name) {
    return oaScalarName(oaNativeNS(), name.c_str());
}

/// The value of a parameter as the database takes it.
struct ValueSetter {
    oaParam& param;

    void operator()(std::int32_t value) const { param.setIntVal(value); }
    void operator()(float value) const { param.setFloatVal(value); }
    void operator()(const std::string& value) const { param.setStringVal(value.c_str()); }
    void operator()(const ApplicationValue& value) const {
        param.setAppVal(static_cast<oaUInt4>(value.bytes.size()),
                        reinterpret_cast<const oaByte*>(value.bytes.data()));
        param.setAppType(value.type.c_str());
    }
    void operator()(double value) const { param.setDoubleVal(value); }
    void operator()(bool value) const { param.setBooleanVal(value); }
    void operator()(TimeValue value) const { param.setTimeVal(static_cast<oaTime>(value.count)); }
};

oaParamArray paramsOf(const std::vector<Parameter>& parameters) {
    oaParamArray params;
    for (const Parameter& parameter : parameters) {
        oaParam param;
        param.setName(parameter.name.c_str());
        std::visit(ValueSetter{param}, parameter.value);
        params.append(param);
    }
    return params;
}

void writeResult(oaDesign* design, const std::string& path) {
    PcellFile file(path.c_str());
    file.open("w");
    file.append(design);
    file.close();
}

// The database gives no design also for one whose evaluator has said nothing and drawn nothing.
std::string reasonOfNoDesign(const Request& request, const oaScalarName& library,
                             const oaScalarName& cell, const oaScalarName& view) {
    const std::string names = request.library + "/" + request.cell + "/" + request.view;
    return oaDesign::exists(library, cell, view)
               ? "the evaluator made no block and told no error: " + names
               : "there is no such design: " + names;
}

void evaluateInto(const Request& request, const std::string& resultPath) {
    const DesignsOfEvaluation designs;
    const ErrorCollector errors;
    const oaScalarName library = native(request.library);
    const oaScalarName cell = native(request.cell);
    const oaScalarName view = native(request.view);
    oaDesign* const evaluated = oaDesign::open(library, cell, view, paramsOf(request.parameters));
    errors.check();
    if (evaluated == nullptr)
        throw std::runtime_error(reasonOfNoDesign(request, library, cell, view));
    writeResult(evaluated, resultPath);
    errors.check();
}

/// Answers the present exception. Its own message is kept to the letter.
std::string messageOf(const std::string& name) {
    try {
        throw;
    } catch (const ReportedFailure& failure) {
        return errorText(name, failure.code, failure.message);
    } catch (const oaException& error) {
        return errorText(name, error.getMsgId(), static_cast<const oaChar*>(error.getMsg()));
    } catch (const oaCommon::IException& error) {
        const char* const message = error.getMsg(); // a foreign one may have none
        return errorText(name, static_cast<unsigned long>(error.getMsgId()),
                         message != nullptr ? message : unknownError);
    } catch (const std::bad_alloc&) {
        return errorText(name, 2, "the evaluating process has no more memory");
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return unknownError;
    }
}

} // namespace

Evaluation::Evaluation(std::string brokerName) : name(std::move(brokerName)) {
    oaDesignInit(oacAPIMajorRevNumber, oacAPIMinorRevNumber, oacDataModelRevNumber);
}

void Evaluation::setUp(const Request& request) {
    const bool isDirectory = request.command == Command::setWorkingDirectory;
    std::string& failure = isDirectory ? directoryFailure : librariesFailure;
    failure.clear();
    try {
        if (isDirectory)
            platform::setCurrentDirectory(request.text);
        else
            openLibraries(request.text);
    } catch (...) {
        failure = messageOf(name);
        say(failure);
    }
}

std::string Evaluation::failureOfSetUp() const {
    std::string all;
    for (const std::string& failure : {directoryFailure, librariesFailure})
        all += failure.empty() ? "" : "\n" + failure;
    return all;
}

// Libraries that the list does not name any more are closed as well.
void Evaluation::openLibraries(const std::string& definitions) {
    const WarningPrinter warnings;
    for (oaLib* lib : listOf<oaLib>(oaLib::getOpenLibs())) {
        if (lib->isValid())
            lib->close();
    }
    oaLibDefList::openLibs(definitions.c_str());
}

Answer Evaluation::canEvaluate(const std::string& typeName) {
    try {
        const oaCommon::SPtr<IPcell> evaluator(typeName.c_str());
        return {true, {}};
    } catch (...) {
        return {false, messageOf(name)};
    }
}

Answer Evaluation::evaluate(const Request& request, const std::string& resultPath) {
    try {
        evaluateInto(request, resultPath);
        return {true, {}};
    } catch (...) {
        return {false, messageOf(name) + failureOfSetUp()};
    }
}

} // namespace broker
