#pragma once

#include "oa/oaObserver.h"

namespace OpenAccess_4 {

class oaDesign;
class PcellFile;

/// Is told of submasters that go into pcell files and come out of them.
class OA_API oaPcellFileObserver : public oaBaseObserver {
public:
    explicit oaPcellFileObserver(oaUInt4 priority, oaBoolean enabled = true);
    ~oaPcellFileObserver() override;

    /// `design` was filled from the byte `offset` on.
    virtual void onRead(oaDesign* design, PcellFile* file, oaUInt8 offset);
    virtual void onPreAppend(oaDesign* design, PcellFile* file);
    virtual void onPostAppend(oaDesign* design, PcellFile* file);
};

} // namespace OpenAccess_4
