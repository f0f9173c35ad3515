#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include <oa/oaDesignDB.h>

namespace comparison {

/// What people call the objects of two designs or technologies. Objects of the two sides that are
/// the same one have one label, that of the first side, and one number.
class Labels {
public:
    /// Objects of a technology are called by their names.
    Labels() = default;
    /// Layers are called as in the technologies of the two designs, the first one before the
    /// second.
    Labels(const oa::oaDesign& was, const oa::oaDesign& is);

    /// Says that two objects are one; or that one, the other being null, has no partner.
    void pair(const oa::oaObject* was, const oa::oaObject* is, const std::string& label);

    /// 0 for an object that nothing was said about.
    std::uint64_t numberOf(const oa::oaObject* object) const;
    bool hasPartner(const oa::oaObject* object) const;

    /// The label, made for an object that nothing was said about.
    std::string labelOf(const oa::oaObject& object) const;
    /// The label without the word for the kind.
    std::string nameOf(const oa::oaObject& object) const;

    /// "M1/drawing", with numbers for names that neither technology has.
    std::string layerText(oa::oaLayerNum layer, oa::oaPurposeNum purpose) const;

private:
    struct Label {
        std::uint64_t number = 0;
        bool hasPartner = false;
        std::string text;
    };

    std::string made(const oa::oaObject& object) const;

    const oa::oaTech* techs_[2] = {};
    std::unordered_map<const oa::oaObject*, std::uint64_t> numbers_;
    std::unordered_map<std::uint64_t, Label> labels_;
    std::uint64_t last_ = 0;
    mutable std::unordered_map<std::uint64_t, std::string> layerTexts_;
};

} // namespace comparison
