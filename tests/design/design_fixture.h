#pragma once

#include "oa/oaDesignDB.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace design_test {

using namespace oa;

inline oaScalarName name(const char* text) {
    return oaScalarName(oaNativeNS(), text);
}

inline std::string text(const oaString& string) {
    return static_cast<const oaChar*>(string);
}

/// What a member like getName(oaString&) answers.
template <class Object>
std::string nameOf(const Object* object) {
    oaString result;
    object->getName(oaNativeNS(), result);
    return text(result);
}

inline oaBox boxOf(const oaFig* fig) {
    oaBox box;
    fig->getBBox(box);
    return box;
}

inline oaBox boxOf(const oaBlock* block) {
    oaBox box;
    block->getBBox(box);
    return box;
}

inline std::string spelled(const oaBox& box) {
    if (box.isInverted())
        return "none";
    return std::to_string(box.left()) + " " + std::to_string(box.bottom()) + " " +
           std::to_string(box.right()) + " " + std::to_string(box.top());
}

template <class Fig>
std::string boxText(const Fig* fig) {
    return spelled(boxOf(fig));
}

inline oaPointArray points(std::initializer_list<oaPoint> list) {
    oaPointArray array;
    for (const oaPoint& point : list)
        array.append(point);
    return array;
}

template <class Points>
std::string pointText(const Points& list) {
    std::string result;
    for (oaUInt4 i = 0; i < list.getNumElements(); ++i)
        result += (i ? " " : "") + std::to_string(list[i].x()) + "," + std::to_string(list[i].y());
    return result;
}

/// The elements of a collection.
template <class T, class O>
std::vector<T*> all(const oaCollection<T, O>& collection) {
    std::vector<T*> elements;
    oaIter<T> iter(collection);
    while (T* element = iter.getNext())
        elements.push_back(element);
    return elements;
}

/// The message id of what `action` throws; 0 when it throws nothing.
template <class Action>
oaUInt4 thrownBy(Action action) {
    try {
        action();
    } catch (const oaException& error) {
        return error.getMsgId();
    }
    return 0;
}

/// The message of what `action` throws.
template <class Action>
std::string messageOf(Action action) {
    try {
        action();
    } catch (const oaException& error) {
        return text(error.getMsg());
    }
    return "";
}

/// An open library "lib" in a fresh directory.
class DesignTest : public testing::Test {
protected:
    DesignTest() {
        oaDesignInit();
        lib = oaLib::create(name("lib"), (directory.str() + "/lib").c_str());
    }
    ~DesignTest() override {
        if (lib->isValid())
            lib->close();
    }

    static oaDesign* open(const char* cell, oaChar mode) {
        return oaDesign::open(name("lib"), name(cell), name("layout"),
                              oaViewType::get(oacMaskLayout), mode);
    }
    /// A new design with a block.
    static oaBlock* makeBlock(const char* cell = "cell") {
        return oaBlock::create(open(cell, 'w'));
    }
    /// Saves and closes the design of a block and opens what it saved.
    static oaBlock* reopened(oaBlock* block, oaChar mode = 'r') {
        oaDesign* design = block->getDesign();
        oaScalarName cell;
        design->getCellName(cell);
        design->save();
        design->close();
        return oaDesign::open(name("lib"), cell, name("layout"), mode)->getTopBlock();
    }
    std::string file(const char* cell) const {
        return directory.str() + "/lib/" + cell + "/layout/layout.oa";
    }

    ovalis::test::TemporaryDirectory directory;
    oaLib* lib;
};

} // namespace design_test
