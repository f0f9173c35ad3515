#pragma once

#include "oaScalarName.h"

namespace OpenAccess_4 {

/// The name of a row of bits: a base name and the indices from `start` to `stop`, both included,
/// every `step`-th of them. The indices may rise or fall. A default one is empty.
class OA_API oaVectorName : public oaNameBase {
public:
    oaVectorName() = default;
    /// Reads `in` as `ns` spells vectors.
    /// @throws oaError  41: there is no text. oacVectorNameInvalid: it is no vector in `ns`.
    oaVectorName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    /// Reads `base` as `ns` spells scalar names.
    /// @throws oaError  oacVectorNameInvalid: the step is 0
    oaVectorName(const oaNameSpace& ns, const oaChar* base, oaUInt4 start, oaUInt4 stop,
                 oaUInt4 step = 1);
    /// @throws oaError  oacVectorNameInvalid: the step is 0
    oaVectorName(const oaScalarName& base, oaUInt4 start, oaUInt4 stop, oaUInt4 step = 1);

    /// With `baseOnly`, reads the base name and leaves the indices as they are.
    void init(const oaNameSpace& ns, const oaChar* in, oaBoolean baseOnly = false);
    /// Spells the name in `ns`, or natively. An empty name gives an empty text.
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    /// The name without its indices.
    void getBaseName(const oaNameSpace& ns, oaString& out) const;
    void getBaseName(oaString& out) const { out = impl::NameAccess::text(*this); }
    void getBaseName(oaScalarName& out) const;
    /// Puts a member below the base name. There are no `flags` other than 0.
    void append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4 flags = 0);
    /// Spells the bit at that place, counted from 0 at the start.
    /// @throws oaError  oacIndexedNameInvalid: there are fewer bits
    void getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const;

    oaUInt4 getStart() const { return start_; }
    oaUInt4 getStop() const { return stop_; }
    oaUInt4 getStep() const { return step_; }
    void setStart(oaUInt4 start) { start_ = start; }
    void setStop(oaUInt4 stop) { stop_ = stop; }
    /// @throws oaError  oacVectorNameInvalid: the step is 0
    void setStep(oaUInt4 step);
    /// 0xFFFFFFFF also for the one range that has a bit more.
    oaUInt4 getNumBits() const;

    bool operator==(const oaVectorName& other) const {
        return hasMembersOf(other) && start_ == other.start_ && stop_ == other.stop_ &&
               step_ == other.step_;
    }
    bool operator!=(const oaVectorName& other) const { return !(*this == other); }

private:
    oaUInt4 start_ = 0;
    oaUInt4 stop_ = 0;
    oaUInt4 step_ = 1;
};

} // namespace OpenAccess_4
