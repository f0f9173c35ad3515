#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Events = std::vector<std::string>;

std::string nameIfValid(const oaLib* lib) {
    return lib->isValid() ? nameOf(lib) : "invalid";
}

class LibEvents : public oaVersionedObserver<oaLib> {
public:
    explicit LibEvents(Events& events, oaUInt4 priority = 1, std::string mark = "")
        : oaVersionedObserver(priority), events_(events), mark_(std::move(mark)) {}

    void onPostCreate(oaLib* lib) override { note("created ", lib); }
    void onPostOpen(oaLib* lib) override { note("opened ", lib); }
    void onPreClose(oaLib* lib) override { note("closing ", lib); }
    void onPreModify(oaLib* lib, oaDMLibModTypeEnum type) override {
        note("modifying " + std::to_string(type) + " ", lib);
    }
    void onPostModify(oaLib* lib, oaDMLibModTypeEnum type) override {
        note("modified " + std::to_string(type) + " ", lib);
    }

private:
    void note(const std::string& event, const oaLib* lib) {
        events_.push_back(mark_ + event + nameIfValid(lib));
    }

    Events& events_;
    std::string mark_;
};

class ListEvents : public oaObserver<oaLibDefList> {
public:
    explicit ListEvents(Events& events, oaUInt4 priority = 1)
        : oaVersionedObserver(priority), events_(events) {}

    oaBoolean onPreOpenLibs(oaLibDefList* list) override {
        events_.push_back("opening " + nameOfList(list));
        return allow;
    }
    void onPostOpenLibs(oaLibDefList* list) override {
        events_.push_back("opened " + nameOfList(list) +
                          (list == oaLibDefList::getTopList() ? ", the top list" : ""));
    }
    oaBoolean onLoadWarnings(oaLibDefList* list, const oaString&,
                             oaLibDefListWarningTypeEnum type) override {
        events_.push_back("warning " + std::to_string(type) + " " + nameOfList(list));
        return false;
    }
    void onPreSave(oaLibDefList* list) override { events_.push_back("saving " + nameOfList(list)); }
    void onPostSave(oaLibDefList* list, oaBoolean succeeded) override {
        events_.push_back((succeeded ? "saved " : "not saved ") + nameOfList(list));
    }
    void onPreSaveAs(oaLibDefList* list, const oaString& path) override {
        events_.push_back("saving " + nameOfList(list) + " as " + nameOfFile(path));
    }
    void onPostSaveAs(oaLibDefList* list, const oaString& path, oaBoolean succeeded) override {
        events_.push_back((succeeded ? "saved " : "not saved ") + nameOfList(list) + " as " +
                          nameOfFile(path));
    }

    bool allow = true;

private:
    static std::string nameOfFile(const oaString& path) {
        return platform::fileName(static_cast<const char*>(path));
    }
    static std::string nameOfList(const oaLibDefList* list) {
        oaString path;
        list->getPath(path);
        return nameOfFile(path);
    }

    Events& events_;
};

class DMObserverTest : public LibDefTest {
protected:
    Events events;
};

} // namespace

TEST_F(DMObserverTest, SeesTheLifeOfALibrary) {
    const LibEvents observer(events);
    oaLib* lib = create("a");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    lib->setAttributes(oaDMAttrArray());
    lib->close();
    open("b", "a")->close();
    EXPECT_THAT(events, ElementsAre("created a", "modifying 0 a", "modified 0 a", "closing a",
                                    "opened b", "closing b"));
}

TEST_F(DMObserverTest, IsNotToldWhatFailed) {
    const LibEvents observer(events);
    EXPECT_EQ(thrownBy([&] { open("a", "missing"); }).id, oacLibCouldNotOpen);
    EXPECT_EQ(thrownBy([&] { oaLib::create(scalarName("a"), ""); }).id, oacLibCouldNotCreate);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(DMObserverTest, IsCalledByPriority) {
    const LibEvents late(events, 9, "late ");
    const LibEvents first(events, 1, "first ");
    const LibEvents second(events, 1, "second ");
    LibEvents off(events, 1, "off ");
    off.enable(false);
    create("a");
    EXPECT_THAT(events, ElementsAre("first created a", "second created a", "late created a"));
}

TEST_F(DMObserverTest, SeesListsAndTheirLibrariesInOrder) {
    makeLibrary("a");
    makeLibrary("b");
    open("x", "b");
    put("more.defs", "FROM more\n");
    put("good.defs", "DEFINE a a\n");
    const LibEvents libraries(events);
    const ListEvents lists(events);
    open("INCLUDE good.defs\nDEFINE x a\nDEFINE y missing\n");
    EXPECT_THAT(events, ElementsAre("opening lib.defs", "opened a", "closing x", "opened x",
                                    "warning 6 lib.defs", "opened lib.defs, the top list"));
    events.clear();
    open("FROB\nINCLUDE more.defs\nDEFINE b b\n");
    EXPECT_THAT(events, ElementsAre("warning 2 lib.defs", "opening lib.defs", "warning 2 more.defs",
                                    "opened lib.defs, the top list"));
}

TEST_F(DMObserverTest, CanKeepLibrariesFromBeingOpened) {
    makeLibrary("a");
    oaLibDefList* before = open("");
    ListEvents later(events, 2);
    ListEvents refusing(events, 1);
    refusing.allow = false;
    put("other.defs", "DEFINE a a\n");
    oaLibDefList::openLibs(path("other.defs").c_str());
    EXPECT_THAT(events, ElementsAre("opening other.defs"));
    EXPECT_EQ(oaLibDefList::getTopList(), before);
    EXPECT_THAT(openLibraries(), IsEmpty());
}

TEST_F(DMObserverTest, SeesAListOpenItsLibraries) {
    oaLibDefList* list = read("DEFINE a missing\n");
    const ListEvents lists(events);
    list->open();
    EXPECT_THAT(events, ElementsAre("opening lib.defs", "warning 6 lib.defs", "opened lib.defs"));
}

TEST_F(DMObserverTest, SeesListsBeingSaved) {
    oaLibDefList* list = oaLibDefList::create(path("new.defs").c_str());
    const ListEvents lists(events);
    list->save();
    list->saveAs(path("copy.defs").c_str());
    EXPECT_EQ(thrownBy([&] { list->saveAs(path("no/copy.defs").c_str()); }).id,
              oacLibDefListFileNotWritable);
    EXPECT_THAT(events,
                ElementsAre("saving new.defs", "saved new.defs", "saving new.defs as copy.defs",
                            "saved new.defs as copy.defs", "saving new.defs as copy.defs",
                            "not saved new.defs as copy.defs"));
}

TEST_F(DMObserverTest, CanDestroyTheListItIsToldAbout) {
    class Destroyer : public oaVersionedObserver<oaLibDefList> {
    public:
        Destroyer() : oaVersionedObserver(1) {}
        oaBoolean onLoadWarnings(oaLibDefList* list, const oaString&,
                                 oaLibDefListWarningTypeEnum) override {
            if (list)
                list->destroy();
            return true;
        }
    };
    const Destroyer observer;
    put("lib.defs", "INCLUDE missing.defs\nDEFINE a missing\n");
    oaLibDefList::openLibs(path("lib.defs").c_str());
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
    EXPECT_TRUE(oaLibDefList::getLibDefLists().isEmpty());
}

TEST_F(DMObserverTest, CanBeToldByTheApplication) {
    oaLib* lib = create("a");
    oaLibDefList* list = read("");
    using Libs = oaVersionedObserver<oaLib, 0>;
    using Lists = oaVersionedObserver<oaLibDefList, 1>;
    EXPECT_FALSE(Libs::hasObservers());
    EXPECT_TRUE(Lists::hasObservers()); // the collector of the fixture
    const LibEvents libraries(events);
    const ListEvents lists(events);
    EXPECT_TRUE(Libs::hasObservers());
    Libs::notifyPostCreateObservers(lib);
    Libs::notifyPostOpenObservers(lib);
    Libs::notifyPreModifyObservers(lib, oacSetAttributesLibModType);
    Libs::notifyPostModifyObservers(lib, oacSetAttributesLibModType);
    Libs::notifyPreCloseObservers(lib);
    EXPECT_TRUE(Lists::notifyPreOpenLibsObservers(list));
    EXPECT_FALSE(Lists::notifyLoadWarningsObservers(list, "", oacSyntaxErrorLibDefListWarning));
    Lists::notifyPostOpenLibsObservers(list);
    Lists::notifyPreSaveObservers(list);
    Lists::notifyPostSaveObservers(list, false);
    Lists::notifyPreSaveAsObservers(list, "x.defs");
    Lists::notifyPostSaveAsObservers(list, "x.defs", true);
    EXPECT_THAT(events, ElementsAre("created a", "opened a", "modifying 0 a", "modified 0 a",
                                    "closing a", "opening lib.defs", "warning 2 lib.defs",
                                    "opened lib.defs", "saving lib.defs", "not saved lib.defs",
                                    "saving lib.defs as x.defs", "saved lib.defs as x.defs"));
}

TEST_F(DMObserverTest, SeesViewTypesComeToBe) {
    class ViewTypes : public oaVersionedObserver<oaViewType> {
    public:
        ViewTypes() : oaVersionedObserver(1) {}
        void onPostCreate(oaViewType* viewType) override {
            oaString name;
            viewType->getName(name);
            names.emplace_back(static_cast<const char*>(name));
        }
        std::vector<std::string> names;
    };
    ViewTypes observer;
    EXPECT_TRUE(oaVersionedObserver<oaViewType>::hasObservers());
    oaViewType* made = oaViewType::create("observedViewType");
    oaViewType::get(oacMaskLayout);
    EXPECT_THAT(observer.names, ElementsAre("observedViewType"));
    oaVersionedObserver<oaViewType>::notifyPostCreateObservers(made);
    EXPECT_THAT(observer.names, ElementsAre("observedViewType", "observedViewType"));
}
