#include "oa/oaText.h"

#include "design/src/text_content.h"
#include "design/src/text_style_members.h"
#include "oa/oaDesignException.h"
#include "oa/oaEvalText.h"

#include <algorithm>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;

namespace impl {

TextStyle& textStyleOf(const oaObject* text) {
    switch (tableOf(text).id().kind) {
    case kTextKind:
        return recordOf<TextRecord>(text).style;
    case kEvalTextKind:
        return recordOf<EvalTextRecord>(text).style;
    case kPropDisplayKind:
        return recordOf<PropDisplayRecord>(text).style;
    default:
        return recordOf<AttrDisplayRecord>(text).style;
    }
}

} // namespace impl

OA_TEXT_STYLE_MEMBERS(oaText)

oaText* oaText::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                       const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                       oaOrient orient, oaFont font, oaDist height, oaBoolean overbar,
                       oaBoolean visible, oaBoolean drafting) {
    const StringId id = edited(block).strings.intern(static_cast<const oaChar*>(text));
    const TextStyle style{origin,
                          height,
                          std::uint8_t(alignment),
                          std::uint8_t(orient),
                          std::uint8_t(font),
                          textFlags(overbar, visible, drafting)};
    return addShape(block, layerNum, purposeNum, TextRecord{style, id});
}

void oaText::getText(oaString& text) const {
    if (tableOf(this).id().kind == kEvalTextKind)
        text = textOf(designDatabaseOf(this), recordOf<EvalTextRecord>(this));
    else
        text = databaseOf(this).strings.chars(recordOf<TextRecord>(this).text);
}

void oaText::setText(const oaString& text) {
    DesignDatabase& database = edited(this);
    const StringId id = database.strings.intern(static_cast<const oaChar*>(text));
    if (tableOf(this).id().kind == kEvalTextKind)
        changeShape<EvalTextRecord>(this, [&](EvalTextRecord& record) { record.text = id; });
    else
        changeShape<TextRecord>(this, [&](TextRecord& record) { record.text = id; });
    database.noteGarbage();
}

} // namespace OpenAccess_4
