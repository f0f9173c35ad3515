#pragma once

#include "oa/IEvalText.h"
#include "oa/oaCommonSPtr.h"
#include "oa/oaText.h"

namespace OpenAccess_4 {

/// The connection between designs and an evaluator of texts. It holds a reference to the evaluator
/// and lasts until it is destroyed or the process ends.
class OA_API oaEvalTextLink {
public:
    /// Makes an evaluator known under the name that it answers. Answers null for a null evaluator.
    /// @throws oaDesignError  oacEvalTextLinkExists: the name is taken; the evaluator is left alone
    static oaEvalTextLink* create(IEvalText* evaluator);
    /// The link of an evaluator of that name, or null.
    static oaEvalTextLink* find(const oaString& name);

    void getName(oaString& name) const;
    IEvalText* getIEvalText() const;

    /// Forgets the evaluator and deletes the link. Texts keep the name of their evaluator.
    void destroy();

    oaEvalTextLink(const oaEvalTextLink&) = delete;
    oaEvalTextLink& operator=(const oaEvalTextLink&) = delete;

private:
    oaEvalTextLink(const oaString& name, IEvalText* evaluator);
    ~oaEvalTextLink() = default;

    oaString name_;
    oaCommon::SPtr<IEvalText> evaluator_;
};

/// A text that an evaluator of the application computes from an expression.
class OA_API oaEvalText : public oaText {
public:
    static oaEvalText* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                              const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                              oaOrient orient, oaFont font, oaDist height,
                              oaEvalTextLink* link = nullptr, oaBoolean overbar = false,
                              oaBoolean visible = true, oaBoolean drafting = true);
    static oaEvalText* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                              const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                              oaOrient orient, oaFont font, oaDist height, const oaString& linkName,
                              oaBoolean overbar = false, oaBoolean visible = true,
                              oaBoolean drafting = true);

    /// The text as evaluated; the expression itself while no evaluator is registered for it.
    void getText(oaString& text) const;
    void getExpression(oaString& text) const;
    /// The name of the evaluator; empty when the text has none.
    void getEvaluatorName(oaString& name) const;
    /// The registered evaluator of the text, or null.
    oaEvalTextLink* getLink() const;
    /// Gives the text another evaluator, or none.
    void setLink(oaEvalTextLink* link);

    OA_HANDLE(oaEvalText);
};

} // namespace OpenAccess_4
