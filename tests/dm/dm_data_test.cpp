#include "dm_tests.h"

#include "oa/oaAppDef.h"
#include "oa/oaAppDefObserver.h"
#include "oa/oaProps.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DMDataTest : public DMTest {
protected:
    oaLibDMData* openLibData(char mode) { return oaLibDMData::open(scalarName("lib"), mode); }
    const oaViewType* layout = oaViewType::get(oacMaskLayout);
};

void setText(oaDMData* data, const char* name, const char* value) {
    if (oaProp* old = oaProp::find(data, name))
        old->destroy();
    oaStringProp::create(data, name, value);
}

std::string textOf(const oaDMData* data, const char* name) {
    const oaProp* prop = oaProp::find(data, name);
    if (!prop)
        return "missing";
    oaString value;
    prop->getValue(value);
    return static_cast<const char*>(value);
}

template <class Data>
std::string cellNameOf(const Data* data) {
    oaString name;
    data->getCellName(oaNativeNS(), name);
    return static_cast<const char*>(name);
}

template <class Data>
std::string viewNameOf(const Data* data) {
    oaString name;
    data->getViewName(oaNativeNS(), name);
    return static_cast<const char*>(name);
}

} // namespace

TEST_F(DMDataTest, OfALibraryAreKeptInItsDirectory) {
    oaLib* lib = create("lib");
    EXPECT_FALSE(oaLibDMData::exists(scalarName("lib")));
    EXPECT_EQ(oaLibDMData::find(scalarName("lib")), nullptr);
    oaLibDMData* data = openLibData('w');
    EXPECT_TRUE(data->isModified());
    EXPECT_TRUE(oaLibDMData::exists(scalarName("lib")));
    EXPECT_EQ(oaLibDMData::find(scalarName("lib")), data);
    setText(data, "techLibName", "basic");
    oaIntProp::create(data, "version", 7);
    oaStringProp::create(oaHierProp::create(data, "more"), "below", "text");
    oaIntAppDef<oaDMData>::get("number")->set(data, 12);
    EXPECT_FALSE(platform::exists(path("lib/data.dm")));
    data->save();
    EXPECT_FALSE(data->isModified());
    EXPECT_TRUE(platform::exists(path("lib/data.dm")));
    lib->close();
    EXPECT_FALSE(data->isValid());

    open("lib", "lib");
    EXPECT_TRUE(oaLibDMData::exists(scalarName("lib")));
    data = openLibData('r');
    EXPECT_EQ(data->getProps().getCount(), 3U);
    EXPECT_EQ(textOf(data, "techLibName"), "basic");
    EXPECT_EQ(textOf(data, "version"), "7");
    oaString below;
    oaProp::find(oaProp::find(data, "more"), "below")->getValue(below);
    EXPECT_EQ(below, "text");
    EXPECT_TRUE(data->hasAppDef());
    EXPECT_EQ(oaIntAppDef<oaDMData>::get("number")->get(data), 12);
}

TEST_F(DMDataTest, HoldGroups) {
    create("lib");
    oaLibDMData* data = openLibData('w');
    oaGroupMember::create(oaGroup::create(data, "first"), data);
    oaGroup::create(data, "second");
    data->save();
    data->reopen('r');
    data->revert();
    EXPECT_EQ(data->getGroups().getCount(), 2U);
    oaIter<oaGroup> named(data->getGroupsByName("first"));
    const oaGroup* first = named.getNext();
    ASSERT_NE(first, nullptr);
    oaIter<oaGroupMember> members(first->getMembers());
    EXPECT_EQ(members.getNext()->getObject(), data);
    EXPECT_EQ(named.getNext(), nullptr);
    EXPECT_TRUE(data->getGroupsByName("third").isEmpty());
}

TEST_F(DMDataTest, OfEachPartLieInItsOwnFile) {
    createFor("lib", "Unix");
    oaDMData* all[] = {
        openLibData('w'), oaCellDMData::open(scalarName("lib"), scalarName("c"), 'w'),
        oaViewDMData::open(scalarName("lib"), scalarName("v"), layout, 'w'),
        oaCellViewDMData::open(scalarName("lib"), scalarName("c"), scalarName("v"), layout, 'w')};
    for (oaDMData* data : all) {
        oaString kind(data->getType().getName());
        setText(data, "kind", kind);
        data->save();
        data->close();
    }
    for (const char* file :
         {"lib/data.dm", "lib/c/data.dm", "lib/data.v.maskLayout.dm", "lib/c/v/data.dm"})
        EXPECT_TRUE(platform::exists(path(file))) << file;
    EXPECT_EQ(textOf(openLibData('r'), "kind"), "LibDMData");
    EXPECT_EQ(textOf(oaCellDMData::open(scalarName("lib"), scalarName("c"), 'r'), "kind"),
              "CellDMData");
    EXPECT_EQ(textOf(oaViewDMData::open(scalarName("lib"), scalarName("v"), layout, 'r'), "kind"),
              "ViewDMData");
    EXPECT_EQ(
        textOf(oaCellViewDMData::open(scalarName("lib"), scalarName("c"), scalarName("v"), 'r'),
               "kind"),
        "CellViewDMData");
}

TEST_F(DMDataTest, OfAViewAreThoseOfItsNameAndType) {
    createFor("lib", "Unix");
    oaViewDMData* data = oaViewDMData::open(scalarName("lib"), scalarName("a.b"), layout, 'w');
    data->save();
    EXPECT_TRUE(platform::exists(path("lib/data.a#2eb.maskLayout.dm")));
    EXPECT_FALSE(
        oaViewDMData::exists(scalarName("lib"), scalarName("a.b"), oaViewType::get(oacSchematic)));
    EXPECT_TRUE(oaViewDMData::exists(scalarName("lib"), scalarName("a.b"), layout));
    EXPECT_EQ(oaViewDMData::find(scalarName("lib"), scalarName("a.b"), layout), data);
    EXPECT_EQ(viewNameOf(data), "a.b");
    EXPECT_EQ(data->getViewType(), layout);
}

TEST_F(DMDataTest, KnowWhatTheyBelongTo) {
    oaLib* lib = create("lib");
    const oaCellDMData* cell = oaCellDMData::open(scalarName("lib"), scalarName("c"), 'a');
    const oaCellViewDMData* both =
        oaCellViewDMData::open(scalarName("lib"), scalarName("c"), scalarName("v"), layout, 'a');
    EXPECT_EQ(cellNameOf(cell), "c");
    EXPECT_EQ(cellNameOf(both), "c");
    EXPECT_EQ(viewNameOf(both), "v");
    EXPECT_EQ(both->getViewType(), layout);
    EXPECT_EQ(cell->getLib(), lib);
    EXPECT_EQ(cell->getDatabase(), cell);
    EXPECT_TRUE(cell->isDMData());
    EXPECT_FALSE(cell->isDM());
    EXPECT_FALSE(lib->isDMData());
    oaString name;
    cell->getLibName(oaNativeNS(), name);
    EXPECT_EQ(name, "lib");
    oaScalarName scalar;
    both->getLibName(scalar);
    EXPECT_EQ(scalar, scalarName("lib"));
    EXPECT_EQ(oaDMData::getOpenDMDataObjs().getCount(), 2U);
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
}

TEST_F(DMDataTest, AreReachedThroughTheirContainer) {
    oaLib* lib = createWritable("lib");
    const oaCell* cell = oaCell::get(lib, scalarName("c"));
    EXPECT_FALSE(oaDMData::exists(cell));
    oaDMData* data = oaDMData::open(cell, 'w');
    EXPECT_EQ(data->getType(), oacCellDMDataType);
    EXPECT_EQ(oaDMData::find(cell), data);
    EXPECT_EQ(oaDMData::find(lib), nullptr);
    EXPECT_EQ(oaCellDMData::find(scalarName("lib"), scalarName("c")), data);
    data->save();
    data->close();
    EXPECT_TRUE(oaDMData::exists(cell));
    oaDMData::destroy(cell);
    EXPECT_FALSE(oaDMData::exists(cell));
    EXPECT_EQ(oaCellDMData::find(scalarName("lib"), scalarName("none")), nullptr);
    EXPECT_FALSE(oaCellDMData::exists(scalarName("lib"), scalarName("none")));
}

TEST_F(DMDataTest, AreOpenOncePerProcess) {
    create("lib");
    oaLibDMData* data = openLibData('a');
    data->save();
    EXPECT_EQ(openLibData('r'), data);
    EXPECT_EQ(data->getRefCount(), 2U);
    EXPECT_EQ(data->getMode(), 'a');
    data->close();
    EXPECT_TRUE(data->isValid());
    data->close();
    EXPECT_FALSE(data->isValid());
    data = openLibData('r');
    EXPECT_EQ(data->getMode(), 'r');
    EXPECT_EQ(openLibData('a'), data);
    EXPECT_EQ(data->getMode(), 'a');
    data->purge();
    EXPECT_EQ(oaLibDMData::find(scalarName("lib")), nullptr);
}

TEST_F(DMDataTest, AreEmptiedByModeW) {
    create("lib");
    oaLibDMData* data = openLibData('a');
    setText(data, "a", "1");
    data->save();
    EXPECT_EQ(openLibData('w'), data);
    EXPECT_FALSE(data->hasProp());
    data->revert();
    EXPECT_EQ(textOf(data, "a"), "1");
    data->reopen('w');
    data->reopen('r');
    EXPECT_EQ(textOf(data, "a"), "1");
}

TEST_F(DMDataTest, OpenForReadingAreNotChanged) {
    create("lib");
    oaLibDMData* data = openLibData('w');
    data->save();
    data->reopen('r');
    const Thrown change = thrownBy([&] { setText(data, "a", "1"); });
    EXPECT_EQ(change.id, oacCannotModifyReadModeDMData);
    EXPECT_EQ(change.text, "The data of library 'lib' are open for reading and cannot be changed.");
    const Thrown save = thrownBy([&] { data->save(); });
    EXPECT_EQ(save.id, oacSaveReadOnlyDMData);
    EXPECT_EQ(save.text, "The data of library 'lib' are open for reading and cannot be saved.");
}

TEST_F(DMDataTest, ThatAreMissingAreNotRead) {
    createWritable("lib");
    make(oaLib::find(scalarName("lib")), "c", "v", oacMaskLayout);
    const oaScalarName lib = scalarName("lib");
    const oaScalarName c = scalarName("c");
    const oaScalarName v = scalarName("v");
    const oaScalarName none = scalarName("none");
    const std::pair<Thrown, const char*> missing[] = {
        {thrownBy([&] { openLibData('r'); }), "library 'lib'"},
        {thrownBy([&] { oaCellDMData::open(lib, c, 'r'); }), "cell 'c' of library 'lib'"},
        {thrownBy([&] { oaCellDMData::open(lib, none, 'r'); }), "cell 'none' of library 'lib'"},
        {thrownBy([&] { oaViewDMData::open(lib, v, layout, 'r'); }), "view 'v' of library 'lib'"},
        {thrownBy([&] { oaCellViewDMData::open(lib, c, v, 'r'); }),
         "cell view 'c/v' of library 'lib'"},
        {thrownBy([&] { oaCellViewDMData::open(lib, c, none, 'a'); }),
         "cell view 'c/none' of library 'lib'"},
        {thrownBy([&] { oaCellViewDMData::open(lib, c, none, layout, 'r'); }),
         "cell view 'c/none' of library 'lib'"},
        {thrownBy([&] { oaLibDMData::destroy(lib); }), "library 'lib'"},
        {thrownBy([&] { oaCellDMData::destroy(lib, none); }), "cell 'none' of library 'lib'"},
        {thrownBy([&] { oaViewDMData::destroy(lib, v, layout); }), "view 'v' of library 'lib'"},
        {thrownBy([&] { oaCellViewDMData::destroy(lib, c, none); }),
         "cell view 'c/none' of library 'lib'"},
    };
    for (const auto& [thrown, title] : missing) {
        EXPECT_EQ(thrown.id, oacDMDataNotFound);
        EXPECT_EQ(thrown.text, std::string("There are no data of ") + title + ".");
    }
    EXPECT_EQ(oaDMData::getOpenDMDataObjs().getCount(), 0U);
    EXPECT_THAT(namesOnDisk("lib/c"), ElementsAre("v"));
}

TEST_F(DMDataTest, RefuseWhatMakesNoSense) {
    create("lib");
    const Thrown mode = thrownBy([&] { openLibData('x'); });
    EXPECT_EQ(mode.id, oacOpenUndefinedModeDMData);
    EXPECT_EQ(mode.text,
              "The data of library 'lib' cannot be opened in mode 'x'; use 'r', 'a' or 'w'.");
    oaLibDMData* data = openLibData('w');
    data->save();
    const Thrown destroyed = thrownBy([&] { oaLibDMData::destroy(scalarName("lib")); });
    EXPECT_EQ(destroyed.id, oacCannotDestroyOpenDMData);
    EXPECT_EQ(destroyed.text, "The data of library 'lib' are open and cannot be destroyed.");
    EXPECT_EQ(thrownBy([&] { oaLibDMData::open(scalarName("other"), 'r'); }).id,
              oacCannotFindLibrary);
    oaCellViewDMData::open(scalarName("lib"), scalarName("c"), scalarName("v"), layout, 'a');
    for (const char other : {'r', 'a'})
        EXPECT_EQ(thrownBy([&] {
                      oaCellViewDMData::open(scalarName("lib"), scalarName("c"), scalarName("v"),
                                             oaViewType::get(oacSchematic), other);
                  }).id,
                  oacMismatchViewType);
}

TEST_F(DMDataTest, ThatAreDamagedAreRefused) {
    create("lib");
    put("lib/data.dm", "something else");
    const Thrown thrown = thrownBy([&] { openLibData('a'); });
    EXPECT_EQ(thrown.id, oacDatabaseFileDamaged);
    EXPECT_THAT(thrown.text, testing::HasSubstr("data.dm"));
    EXPECT_EQ(oaLibDMData::find(scalarName("lib")), nullptr);
    EXPECT_FALSE(platform::exists(path("lib/data.dm.cdslck")));
    EXPECT_EQ(openLibData('w')->getRefCount(), 1U);
}

TEST_F(DMDataTest, GoWithTheirContainer) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "c", "v", oacMaskLayout);
    oaDMData* ofCell = oaDMData::open(cellView->getCell(), 'w');
    oaDMData* ofCellView = oaDMData::open(cellView, 'w');
    oaDMData* ofView = oaDMData::open(cellView->getView(), 'w');
    ofCell->save();
    ofCellView->save();
    cellView->getCell()->destroy();
    EXPECT_FALSE(ofCell->isValid());
    EXPECT_FALSE(ofCellView->isValid());
    EXPECT_TRUE(ofView->isValid());
    EXPECT_THAT(namesOnDisk("lib"), testing::Not(testing::Contains("c")));
    lib->close();
    EXPECT_FALSE(ofView->isValid());
}

TEST_F(DMDataTest, OfAViewGoWithIt) {
    oaLib* lib = createWritable("lib");
    oaView* view = oaView::get(lib, scalarName("v"), layout);
    oaDMData* data = oaDMData::open(view, 'w');
    data->save();
    EXPECT_TRUE(oaDMData::exists(view));
    view->destroy();
    EXPECT_FALSE(data->isValid());
    EXPECT_FALSE(oaViewDMData::exists(scalarName("lib"), scalarName("v"), layout));
    EXPECT_THAT(namesIn(lib->getDMFiles()), IsEmpty());
}

TEST_F(DMDataTest, NeedAccessToTheLibrary) {
    oaLib* lib = create("lib");
    oaLibDMData* data = openLibData('a');
    data->save();
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    const Thrown thrown = thrownBy([&] { data->save(); });
    EXPECT_EQ(thrown.id, oacLibAccessCannotUpgrade);
    EXPECT_EQ(openLibData('r'), data);
}

TEST_F(DMDataTest, AreChangedByOneProcessAtATime) {
    create("lib");
    oaLibDMData* data = openLibData('a');
    data->save();
    EXPECT_EQ(child("open-data", "lib"), 1);
    data->reopen('r');
    EXPECT_EQ(child("open-data", "lib"), 0);
    WaitingChild holder("hold-data", path("lib"), path("ready"));
    EXPECT_EQ(thrownBy([&] { data->reopen('a'); }).id, oacCannotLockDatabase);
    EXPECT_EQ(data->getMode(), 'r');
    holder.kill();
    data->reopen('a');
    EXPECT_EQ(data->getMode(), 'a');
}

TEST_F(DMDataTest, AreReadAgainWhenSomebodySavedThem) {
    create("lib");
    oaLibDMData* data = openLibData('a');
    setText(data, "a", "1");
    data->save();
    data->reopen('r');
    oaLib* other = open("other", "lib");
    oaDMData* theirs = oaDMData::open(other, 'a');
    setText(theirs, "a", "2");
    theirs->save();
    theirs->close();
    EXPECT_EQ(textOf(data, "a"), "1");
    data->reopen('a');
    EXPECT_EQ(textOf(data, "a"), "2");
}

TEST_F(DMDataTest, AreNotOnTheObjectsOfTheLibrary) {
    oaLib* lib = createWritable("lib");
    oaCell* cell = oaCell::get(lib, scalarName("c"));
    EXPECT_EQ(thrownBy([&] { oaStringProp::create(cell, "a", "1"); }).id, oacInvalidObjForProp);
    setText(oaDMData::open(cell, 'a'), "a", "1");
    EXPECT_FALSE(cell->hasProp());
    EXPECT_FALSE(cell->hasAppDef());
    auto* definition = oaIntAppDef<oaCell>::get("onCell", 0, false);
    definition->set(cell, 3);
    EXPECT_TRUE(cell->hasAppDef());
}

TEST_F(DMDataTest, AreAmongTheFilesOfTheirContainer) {
    oaLib* lib = createWritable("lib");
    openLibData('w')->save();
    EXPECT_THAT(namesIn(lib->getDMFiles()), ElementsAre("data.dm"));
    EXPECT_NE(oaDMFile::find(lib, "data.dm"), nullptr);
}

namespace {

class NotingObserver : public oaObserver<oaDMData> {
public:
    NotingObserver() : oaObserver<oaDMData>(1) {}

    void onFirstOpen(oaDMData* data) override { note("open", data); }
    void onPurge(oaDMData* data) override { note("purge", data); }
    void onPreReopen(oaDMData* data, oaChar mode) override {
        note(std::string("reopen as ") + mode, data);
    }
    void onPostReopen(oaDMData* data, oaChar mode) override {
        note(std::string("reopened from ") + mode, data);
    }
    void onTruncate(oaDMData* data) override { note("truncate", data); }
    void onPreSave(oaDMData* data) override { note("save", data); }
    void onPostSave(oaDMData* data, oaBoolean done) override {
        note(done ? "saved" : "not saved", data);
    }

    std::vector<std::string> lines;

private:
    void note(const std::string& what, const oaDMData* data) {
        lines.push_back(what + ", " + data->getMode());
    }
};

} // namespace

namespace {

class ConflictObserver : public oaObserver<oaAppDef> {
public:
    ConflictObserver() : oaObserver<oaAppDef>(1) {}

    void onConflict(const oaString& name, oaType) override {
        names.push_back(static_cast<const oaChar*>(name));
    }

    std::vector<std::string> names;
};

} // namespace

TEST_F(DMDataTest, ThatDisagreeWithTheSessionAreReported) {
    create("lib");
    ASSERT_EQ(child("save-data", "lib"), 0);
    oaIntAppDef<oaDMData>::get("disputed");
    ConflictObserver observer;
    oaLibDMData* data = openLibData('r');
    EXPECT_THAT(observer.names, ElementsAre("disputed"));
    data->revert();
    EXPECT_THAT(observer.names, ElementsAre("disputed", "disputed"));
    data->reopen('a');
    EXPECT_THAT(observer.names, ElementsAre("disputed", "disputed"));
}

TEST_F(DMDataTest, AreObserved) {
    EXPECT_FALSE(oaObserver<oaDMData>::hasObservers());
    NotingObserver observer;
    EXPECT_TRUE(oaObserver<oaDMData>::hasObservers());
    oaLib* lib = create("lib");
    oaLibDMData* data = openLibData('w');
    data->save();
    openLibData('r');
    data->reopen('r');
    openLibData('a');
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THROW(data->save(), oaDMError);
    lib->close();
    EXPECT_THAT(observer.lines,
                ElementsAre("open, w", "truncate, w", "save, w", "saved, w", "reopen as r, w",
                            "reopened from w, r", "reopen as a, r", "reopened from r, a", "save, a",
                            "not saved, a", "purge, a"));
}
