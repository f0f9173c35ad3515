#include "oa/oaTextDisplay.h"

#include "base/src/source.h"
#include "design/src/text_content.h"
#include "design/src/text_style_members.h"
#include "oa/oaDesignException.h"
#include "oa/oaNameSpace.h"
#include "oa/oaProp.h"

namespace OpenAccess_4 {

using namespace impl;

OA_TEXT_STYLE_MEMBERS(oaTextDisplay)

namespace {

bool showsProp(const oaObject* display) {
    return tableOf(display).id().kind == kPropDisplayKind;
}

std::uint32_t& formatOf(const oaObject* display) {
    return showsProp(display) ? recordOf<PropDisplayRecord>(display).format
                              : recordOf<AttrDisplayRecord>(display).format;
}

oaBlock* blockFor(const oaObject* object) {
    DesignDatabase& database = designDatabaseOf(object);
    oaBlock* block = database.block();
    if (!block)
        throw oaDesignError(oacNoBlockForDisplay, database.names().lib.c_str(),
                            database.names().cell.c_str(), database.names().view.c_str());
    return block;
}

} // namespace

oaTextDisplayCollection oaTextDisplay::getTextDisplays(const oaObject* object) {
    const DesignDatabase& database = designDatabaseOf(object);
    std::vector<oaObject*> displays;
    for (const ObjectRef& display : designDatabaseOf(object).displaysOf(locationOf(object).ref))
        displays.push_back(database.handle(display));
    return collectionOf<oaTextDisplayCollection>(std::move(displays));
}

void oaTextDisplay::getText(oaString& text) const {
    const DesignDatabase& database = designDatabaseOf(this);
    text = showsProp(this) ? textOf(database, recordOf<PropDisplayRecord>(this))
                           : textOf(database, recordOf<AttrDisplayRecord>(this));
}

oaTextDisplayFormat oaTextDisplay::getFormat() const {
    return oaTextDisplayFormatEnum(formatOf(this));
}

void oaTextDisplay::setFormat(oaTextDisplayFormat format) {
    edited(this);
    formatOf(this) = format;
}

oaAttrDisplay* oaAttrDisplay::create(oaObject* object, oaAttrType attribute, oaLayerNum layerNum,
                                     oaPurposeNum purposeNum, const oaPoint& origin,
                                     oaTextAlign alignment, oaOrient orient, oaFont font,
                                     oaDist height, oaTextDisplayFormat format, oaBoolean overbar,
                                     oaBoolean visible, oaBoolean drafting) {
    const ObjectRef shown = locationOf(object).ref;
    if (attribute >= attributesOf(shown.table))
        throw oaDesignError(oacInvalidAttributeForObject, oaUInt4(attribute),
                            static_cast<const oaChar*>(object->getType().getName()));
    oaBlock* block = blockFor(object);
    edited(block);
    const TextStyle style{origin,
                          height,
                          std::uint8_t(alignment),
                          std::uint8_t(orient),
                          std::uint8_t(font),
                          textFlags(overbar, visible, drafting)};
    return addShape(block, layerNum, purposeNum,
                    AttrDisplayRecord{style, std::uint32_t(format), attribute, shown});
}

oaObject* oaAttrDisplay::getObject() const {
    return databaseOf(this).handle(recordOf<AttrDisplayRecord>(this).object);
}

oaAttrType oaAttrDisplay::getAttribute() const {
    return recordOf<AttrDisplayRecord>(this).attribute;
}

void oaAttrDisplay::getText(const oaNameSpace& ns, oaString& text) const {
    text = textOf(designDatabaseOf(this), recordOf<AttrDisplayRecord>(this), ns);
}

oaPropDisplay* oaPropDisplay::create(oaProp* prop, oaLayerNum layerNum, oaPurposeNum purposeNum,
                                     const oaPoint& origin, oaTextAlign alignment, oaOrient orient,
                                     oaFont font, oaDist height, oaTextDisplayFormat format,
                                     oaBoolean overbar, oaBoolean visible, oaBoolean drafting) {
    oaBlock* block = blockFor(prop);
    edited(block);
    const TextStyle style{origin,
                          height,
                          std::uint8_t(alignment),
                          std::uint8_t(orient),
                          std::uint8_t(font),
                          textFlags(overbar, visible, drafting)};
    return addShape(block, layerNum, purposeNum,
                    PropDisplayRecord{style, std::uint32_t(format), slotOf(prop)});
}

oaProp* oaPropDisplay::getProp() const {
    return static_cast<oaProp*>(databaseOf(this).handle(recordOf<PropDisplayRecord>(this).shown()));
}

} // namespace OpenAccess_4
