#pragma once

#include "oa/oaDesignDB.h"

#include <cstdint>

namespace oa = OpenAccess_4;

/// What a client can ask of databases, asked of everything in one. Each function answers a digest
/// of all answers, so that two databases of the same content give the same.
namespace fuzz {

/// Makes the definitions of those application-defined values that the visits look for.
void makeDefinitions();

std::uint64_t visitDesign(const oa::oaDesign* design);
std::uint64_t visitTech(const oa::oaTech* tech);

class Digest;
void visitViaParam(const oa::oaViaParam& params, Digest& digest);

/// Destroys one of two objects of every kind.
void destroyHalf(oa::oaBlock* block);

/// Puts one object of every kind with all that it may carry into an empty database. Instances name
/// the design itself, and one that is not there, as their masters.
void fill(oa::oaDesign* design);
void fill(oa::oaTech* tech);

/// Makes the definitions, "via", "custom via" and "missing via", of the vias that fill() puts into
/// a design.
void defineVias(oa::oaTech* tech);

/// Gives an object a property of every kind.
void addProps(oa::oaObject* object);

/// Makes an empty design a super master with parameters of every kind.
void makeMaster(oa::oaDesign* design);

} // namespace fuzz
