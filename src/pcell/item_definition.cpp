#include <ovalis/pcell.h>

namespace ovalis {

namespace {

std::string opening(const std::string& cellName, const CellOptions& options) {
    return "create_item(\" " + cellName + "\",\"" + cellName + "\",\"" + options.itemPrefix + "\",";
}

std::string listed(const std::vector<Param*>& params) {
    std::string text;
    for (const Param* param : params) {
        text += "," + param->parm() + "\n";
    }
    return text;
}

} // namespace

std::string createSKRPItemDef(const std::string& cellName, const std::vector<Param*>& params,
                              const CellOptions& options) {
    return opening(cellName, options) +
           "ITEM_NOT_ALL_PARM,-1,NULL,\"Component Parameters\",NULL,\"  \",\"" + cellName +
           "NetList\", standard_symbol, \"SYM_0PORT\", macro_artwork, \"" + cellName +
           "Artwork\", ITEM_PRIMITIVE_EX" + listed(params) + ");\n";
}

std::string createPSNPItemDef(const std::string& cellName, const std::vector<Param*>& params,
                              const CellOptions& options) {
    // In the last format the backslash and the n are two characters of the text, no line break.
    return opening(cellName, options) +
           "16,-1,NULL,\"Component Parameters\",NULL,"
           "\"%43?global %;%d:%t %# %44?0%:%31?%C%:_net%c%;%;%e %b%r%8?%29?%:%30?%p %:%k%?[%1i]%;"
           "=%p %;%;%;%e%e\",\"" +
           cellName + "\",\"%t%b%r%38?%:\\n%30?%s%:%k%?[%1i]%;=%s%;%;%e%e%;\",\"\",0,NULL,0" +
           listed(params) + ");\n";
}

} // namespace ovalis
