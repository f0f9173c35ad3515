#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <oa/oaDesignDB.h>

#include <ovalis/export.h>

namespace ovalis {

/// Describes one named connection point of a layout; a plain value.
class OVALIS_API Port {
public:
    /// Makes a port "Unknown_Port" without shape, on layer 0 and purpose 0, at angle 0.0.
    Port() = default;

    /// Returns the name of the terminal and the pin that the port becomes.
    const std::string& name() const { return name_; }
    /// Replaces the name.
    void setName(const std::string& name) { name_ = name; }

    /// Returns the layer number of the pin's figure.
    std::uint32_t layerNum() const { return layerNum_; }
    /// Replaces the layer number.
    void setLayerNum(std::uint32_t layerNum) { layerNum_ = layerNum; }

    /// Returns the purpose number of the pin's figure.
    std::uint32_t purposeNum() const { return purposeNum_; }
    /// Replaces the purpose number.
    void setPurposeNum(std::uint32_t purposeNum) { purposeNum_ = purposeNum; }

    /// Returns the pin's angle, in degrees.
    double angle() const { return angle_; }
    /// Replaces the pin's angle.
    void setAngle(double angle) { angle_ = angle; }

    /// Returns the points of the pin's figure, in database units.
    const oa::oaPointArray& shapeOutline() const { return shapeOutline_; }
    /// Copies the points of the pin's figure: one makes a dot, two a line, more a polygon.
    void setShapeOutline(const oa::oaPointArray& outline) { shapeOutline_ = outline; }

    /// Returns the text properties that terminal and pin get.
    const std::map<std::string, std::string>& properties() const { return properties_; }
    /// Replaces all text properties.
    void setProperties(const std::map<std::string, std::string>& properties) {
        properties_ = properties;
    }

private:
    std::uint32_t layerNum_ = 0;
    std::uint32_t purposeNum_ = 0;
    std::string name_ = "Unknown_Port";
    std::map<std::string, std::string> properties_;
    oa::oaPointArray shapeOutline_;
    double angle_ = 0.0;
};

/// Makes each port an interface terminal with net, pin and figure in the design's top block,
/// which is created when there is none.
///
/// The nets are "net_ovalis_0" and so on, by place in the list, or the first alone when
/// `sharedNet` is true; nets that exist are used again. A terminal that has the port's name gives
/// way, so of two ports with one name the later stays. A terminal of another name that holds the
/// position of a port, its place in the list, does not: that is an error of the database.
///
/// What was made before a failure stays. An empty list with `sharedNet` makes nothing.
/// @throws std::runtime_error  the design is invalid or not writeable, it gives no top block, or a
///                             port has no shape; in the last case its terminal and pin exist.
/// @throws Exception           the database failed.
OVALIS_API void addPorts(oa::oaDesign& design, const std::vector<Port>& ports, bool sharedNet);

/// Removes terminals, pins and figures from the nets "net_ovalis_0", "net_ovalis_1" and so on, up
/// to the first number that is missing; the nets themselves stay.
/// @throws std::runtime_error  the design is invalid or not writeable.
/// @throws Exception           the database failed.
OVALIS_API void removePorts(oa::oaDesign& design);

/// Maps "layer:purpose" to (layer number, purpose number).
using LayerPurposePairs = std::map<std::string, std::pair<std::uint32_t, std::uint32_t>>;

/// Returns the drawing layers of the circuit-design environment; a fresh map each time.
OVALIS_API LayerPurposePairs vexDefaultLayerPurposePairs();

/// Returns the layers of the simulation application; a fresh map each time.
OVALIS_API LayerPurposePairs tessaDefaultLayerPurposePairs();

/// Draws the symbol of an S-parameter block and adds its ports "P1", "P2" and so on.
///
/// Each of the `count` differential ports has a "+" and a "-" pin of its own, odd ports on the
/// left and even ones on the right. Returns true. What was drawn before a failure stays.
/// @throws Exception  the database failed, for example because the design is invalid or open for
///                    reading.
OVALIS_API bool vexSymbolSnPDifferential(oa::oaDesign& design, std::uint64_t count);

/// Draws the symbol with one forked pin for each of the `count` differential ports, the first half
/// on the left, the rest on the right; else as `vexSymbolSnPDifferential`.
///
/// With `count` 0 the database refuses the body, which would be turned inside out.
/// @throws Exception  the database failed, for example because the design is invalid or open for
///                    reading.
OVALIS_API bool vexSymbolSnPDifferentialForks(oa::oaDesign& design, std::uint64_t count);

} // namespace ovalis
