// Starts the library up under the circumstances named on the command line and prints what can be
// seen of it. A process of its own, because start-up happens once.

#include <iostream>
#include <memory>
#include <string>

#include <ovalis/library.h>
#include <ovalis/pcell.h>

#include <oatest/pcell_links.h>

namespace {

const char* const evaluatorNames[] = {"PSNPcell",     "LayerMappingPcell",     "ReferencePcell",
                                      "CorvidViaPad", "NestedTechnologyPcell", "SKRPcell"};

/// An evaluator of the host that takes a name which the library wants.
class HostPcell : public ovalis::VexPcell {
public:
    explicit HostPcell(const std::string& name) : name_(name) {}

    void getName(oa::oaString& name) override { name = name_.c_str(); }

private:
    std::string name_;
};

void attempt() {
    try {
        ovalis::initOa();
        std::cout << "initialised";
    } catch (const oa::oaException& error) {
        std::cout << "failed with " << error.getMsgId();
    }
    std::cout << (ovalis::vexPinAngle != nullptr ? ", angle" : ", no angle") << '\n';
}

bool isRegistered(const char* name) {
    return oa::oaPcellLink::find(name) != nullptr;
}

bool hasGrowEnvelope() {
    return oa::oaDerivedLayerDef::find("growEnvelope") != nullptr;
}

void printEvaluator(const char* name) {
    const std::unique_ptr<oa::oaPcellDef> def(oa::oaPcellLink::getPcellDef(name));
    oa::IPcell* evaluator = def->getIPcell();
    const char* kind = dynamic_cast<ovalis::VexPSNPcell*>(evaluator)                ? "PSN"
                       : dynamic_cast<ovalis::VexLayerMappingPcell*>(evaluator)     ? "layers"
                       : dynamic_cast<ovalis::VexReferencePcell*>(evaluator)        ? "reference"
                       : dynamic_cast<ovalis::VexViaPadPcell*>(evaluator)           ? "via pad"
                       : dynamic_cast<ovalis::VexNestedTechnologyPcell*>(evaluator) ? "technology"
                       : dynamic_cast<ovalis::VexSKRPcell*>(evaluator)              ? "macro"
                                                                                    : "unknown";
    oa::oaString own;
    evaluator->getName(own);
    std::cout << name << ": " << kind << ", " << static_cast<const char*>(own) << '\n';
}

void printLinks() {
    for (const std::string& name : oatest::pcellLinkNames()) {
        std::cout << name << ' ';
    }
    std::cout << "are linked\n";
}

void once() {
    std::cout << (ovalis::vexPinAngle != nullptr ? "angle" : "no angle") << " before\n";
    printLinks();
    attempt();
    printLinks();
    for (const char* name : evaluatorNames) {
        printEvaluator(name);
    }
    oa::oaDerivedLayerDef* grow = oa::oaDerivedLayerDef::find("growEnvelope");
    std::cout << "growEnvelope of " << grow->getNumLayers() << " layer\n";
    std::cout << "angle persistent: " << ovalis::vexPinAngle->isPersistent()
              << ", default: " << ovalis::vexPinAngle->getDefault() << ", same: "
              << (oa::oaDoubleAppDef<oa::oaPin>::find("vexPinAngle") == ovalis::vexPinAngle)
              << '\n';
}

/// What the first call made is taken away: a later call would have to make it again.
void twice() {
    attempt();
    auto* angle = ovalis::vexPinAngle;
    oa::oaDerivedLayerDef::find("growEnvelope")->destroy();
    oa::oaPcellLink::find("SKRPcell")->destroy();
    attempt();
    std::cout << "growEnvelope: " << hasGrowEnvelope() << ", SKRPcell: " << isRegistered("SKRPcell")
              << ", same angle: " << (angle == ovalis::vexPinAngle) << '\n';
}

/// Start-up stops at the name that the host took, and everything before it stays.
void taken(const std::string& name) {
    oa::oaDesignInit();
    oa::oaPcellLink::create(new HostPcell(name));
    attempt();
    for (const char* other : evaluatorNames) {
        if (name != other && isRegistered(other)) {
            std::cout << other << '\n';
        }
    }
    std::cout << "growEnvelope: " << hasGrowEnvelope() << '\n';
}

/// The first evaluator fails, so that the second attempt can run through.
void again() {
    oa::oaDesignInit();
    oa::oaPcellLink* link = oa::oaPcellLink::create(new HostPcell("PSNPcell"));
    attempt();
    link->destroy();
    attempt();
    std::cout << "growEnvelope: " << hasGrowEnvelope() << '\n';
}

/// Fails after the evaluators: a second attempt starts from the beginning and meets them.
void growTaken() {
    oa::oaDesignInit();
    oa::oaDerivedLayerDef::create("growEnvelope", 2);
    attempt();
    attempt();
    std::cout << "SKRPcell: " << isRegistered("SKRPcell") << '\n';
}

/// A function of the library starts it up itself, and translates what that fails with.
void translated() {
    oa::oaDesignInit();
    oa::oaPcellLink* link = oa::oaPcellLink::create(new HostPcell("PSNPcell"));
    try {
        ovalis::existsLib("none");
    } catch (const ovalis::Exception& error) {
        std::cout << "failed with " << error.msgId() << '\n';
    }
    link->destroy();
    std::cout << "exists: " << ovalis::existsLib("none") << ", growEnvelope: " << hasGrowEnvelope()
              << '\n';
}

void links() {
    attempt();
    printLinks();
}

} // namespace

int main(int count, char** values) {
    const std::string what = count > 1 ? values[1] : "";
    if (what == "once") {
        once();
    } else if (what == "twice") {
        twice();
    } else if (what == "taken" && count == 3) {
        taken(values[2]);
    } else if (what == "links") {
        links();
    } else if (what == "again") {
        again();
    } else if (what == "grow-taken") {
        growTaken();
    } else if (what == "translated") {
        translated();
    } else {
        return 2;
    }
    return 0;
}
