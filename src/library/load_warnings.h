#pragma once

#include <string>
#include <vector>

#include <ovalis/core.h>

namespace ovalis {

/// Puts what is wrong in library definition files into words, for as long as it lives.
class myLibDefListObserver : public oa::oaVersionedObserver<oa::oaLibDefList> {
public:
    myLibDefListObserver();
    ~myLibDefListObserver() override;

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString& message,
                                 oa::oaLibDefListWarningTypeEnum warningType) override;

    /// Returns one text for each warning, in their order.
    const std::vector<std::string>& messages() const { return messages_; }

    /// Returns true when a file could not be opened at all.
    bool lacksList() const;

private:
    std::vector<std::string> messages_;
    /// The list of each message; null for a file that could not be opened.
    std::vector<oa::oaLibDefList*> lists_;
};

} // namespace ovalis
