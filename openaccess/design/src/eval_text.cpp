#include "oa/oaEvalText.h"

#include "design/src/text_content.h"
#include "design/src/text_edit.h"
#include "oa/oaDesignException.h"

#include <algorithm>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// The evaluators of the process.
std::vector<oaEvalTextLink*>& links() {
    static std::vector<oaEvalTextLink*> all;
    return all;
}

oaString nameOf(const oaEvalTextLink* link) {
    oaString name;
    if (link)
        link->getName(name);
    return name;
}

} // namespace

IEvalText::~IEvalText() = default;

const oaCommon::Guid& IEvalText::getId() {
    static const oaCommon::Guid id = {
        0x1d94f6a8, 0x3c27, 0x4be5, {0x90, 0x6b, 0x52, 0xd7, 0x0e, 0xf3, 0x48, 0x9c}};
    return id;
}

oaEvalTextLink::oaEvalTextLink(const oaString& name, IEvalText* evaluator)
    : name_(name), evaluator_(evaluator) {}

oaEvalTextLink* oaEvalTextLink::create(IEvalText* evaluator) {
    if (!evaluator)
        return nullptr;
    oaString name;
    evaluator->getName(name);
    if (find(name))
        throw oaDesignError(oacEvalTextLinkExists, static_cast<const oaChar*>(name));
    links().push_back(new oaEvalTextLink(name, evaluator)); // deleted by destroy()
    return links().back();
}

oaEvalTextLink* oaEvalTextLink::find(const oaString& name) {
    const auto found =
        std::find_if(links().begin(), links().end(),
                     [&](const oaEvalTextLink* link) { return link->name_ == name; });
    return found == links().end() ? nullptr : *found;
}

void oaEvalTextLink::getName(oaString& name) const {
    name = name_;
}

IEvalText* oaEvalTextLink::getIEvalText() const {
    return evaluator_.getRef();
}

void oaEvalTextLink::destroy() {
    std::erase(links(), this);
    delete this;
}

oaEvalText* oaEvalText::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                               const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                               oaOrient orient, oaFont font, oaDist height, oaEvalTextLink* link,
                               oaBoolean overbar, oaBoolean visible, oaBoolean drafting) {
    return create(block, layerNum, purposeNum, text, origin, alignment, orient, font, height,
                  nameOf(link), overbar, visible, drafting);
}

oaEvalText* oaEvalText::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                               const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                               oaOrient orient, oaFont font, oaDist height,
                               const oaString& linkName, oaBoolean overbar, oaBoolean visible,
                               oaBoolean drafting) {
    DesignDatabase& database = edited(block);
    const TextStyle style{origin,
                          height,
                          std::uint8_t(alignment),
                          std::uint8_t(orient),
                          std::uint8_t(font),
                          textFlags(overbar, visible, drafting)};
    return addShape(block, layerNum, purposeNum,
                    EvalTextRecord{style, database.strings.intern(static_cast<const oaChar*>(text)),
                                   database.strings.intern(static_cast<const oaChar*>(linkName))});
}

void oaEvalText::getText(oaString& text) const {
    text = textOf(designDatabaseOf(this), recordOf<EvalTextRecord>(this));
}

void oaEvalText::getExpression(oaString& text) const {
    text = databaseOf(this).strings.chars(recordOf<EvalTextRecord>(this).text);
}

void oaEvalText::getEvaluatorName(oaString& name) const {
    name = databaseOf(this).strings.chars(recordOf<EvalTextRecord>(this).link);
}

oaEvalTextLink* oaEvalText::getLink() const {
    oaString name;
    getEvaluatorName(name);
    return oaEvalTextLink::find(name);
}

void oaEvalText::setLink(oaEvalTextLink* link) {
    DesignDatabase& database = edited(this);
    const StringId name = database.strings.intern(static_cast<const oaChar*>(nameOf(link)));
    changeShape<EvalTextRecord>(this, [&](EvalTextRecord& text) { text.link = name; });
    database.noteGarbage();
}

namespace impl {

oaString textOf(const DesignDatabase& database, const EvalTextRecord& text) {
    const oaString expression(database.strings.chars(text.text));
    const oaEvalTextLink* link = oaEvalTextLink::find(database.strings.chars(text.link));
    if (!link)
        return expression;
    oaString result;
    link->getIEvalText()->onEval(expression, result);
    return result;
}

} // namespace impl

} // namespace OpenAccess_4
