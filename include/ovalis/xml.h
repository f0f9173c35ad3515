#pragma once

#include <iosfwd>
#include <string>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>

/// Descriptions of database objects as text in the manner of XML, for people who look for what a
/// database holds. Names and texts stand in it as they are, also with quotes and angle brackets: it
/// is not meant to be parsed.
///
/// Each description holds those of the objects within the described one, and ends in a line end.
/// Describing changes nothing: neither files, nor designs and technologies that somebody edits.
/// Every function throws `Exception` when the database failed.
namespace ovalis {

/// Describes a library: its technology, its cells and everything in them.
///
/// The library must be open for reading (`getAccess`). Designs and the technology are opened and
/// closed again one after the other; a cell view without a design has none in its description.
OVALIS_API std::string xmlFormat(const oa::oaLib& lib);

/// Describes a cell and its cell views; the library must be open for reading.
OVALIS_API std::string xmlFormat(const oa::oaCell& cell);

/// Describes a cell view and the design in it; the library must be open for reading.
OVALIS_API std::string xmlFormat(const oa::oaCellView& cellView);

/// Describes the files of a library, a cell or a cell view; the library must be open for reading.
OVALIS_API std::string xmlFormat(const oa::oaDMContainer& container);

/// Describes a design: its parameters, its block and the instances in that.
OVALIS_API std::string xmlFormat(const oa::oaDesign& design);

/// Describes a technology.
OVALIS_API std::string xmlFormat(const oa::oaTech& tech);

/// Describes a net.
OVALIS_API std::string xmlFormat(const oa::oaNet& net);

/// Describes a pin and its terminal.
OVALIS_API std::string xmlFormat(const oa::oaPin& pin);

/// Describes a shape.
OVALIS_API std::string xmlFormat(const oa::oaShape& shape);

/// Describes a parameter.
OVALIS_API std::string xmlFormat(const oa::oaParam& param);

/// Describes a box.
OVALIS_API std::string xmlFormat(const oa::oaBox& box);

/// Writes what `xmlFormat` gives to `out`, piece by piece, so that a large library needs no room in
/// memory. What the stream does not take is lost: ask it afterwards.
OVALIS_API void xmlWrite(const oa::oaLib& lib, std::ostream& out);

/// Writes the description of a cell as `xmlFormat` gives it.
OVALIS_API void xmlWrite(const oa::oaCell& cell, std::ostream& out);

/// Writes the description of a cell view as `xmlFormat` gives it.
OVALIS_API void xmlWrite(const oa::oaCellView& cellView, std::ostream& out);

} // namespace ovalis
