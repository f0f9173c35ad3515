#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "component/read_component.h"
#include "support/files.h"
#include "support/temporary_directory.h"

namespace component::test {

/// A component with a port of each shape and a parameter of each kind.
inline nlohmann::json goodComponent() {
    return nlohmann::json::parse(R"({
        "format": "component/1", "name": "coil", "description": "A coil",
        "kind": "script_macro", "units": {"user_unit": "micron", "dbu_per_uu": 1000},
        "layout": "layout.json",
        "layers": [
            {"name": "M1", "number": 1, "purpose": "drawing", "purpose_number": 4294967295,
             "gds": [1, 0], "draw": true},
            {"name": "M1", "number": 1, "purpose": "pin", "purpose_number": 2, "gds": [1, 2]},
            {"name": "Mark", "number": 9, "purpose": "drawing", "purpose_number": 4294967295,
             "gds": [9, 0], "draw": false}
        ],
        "ports": [
            {"name": "A", "layer": "M1", "purpose": "pin", "outline": [[0, 5]], "angle": 180.0,
             "properties": {"k": "v"}},
            {"name": "B", "layer": "M1", "purpose": "drawing", "outline": [[0, 0], [0, 9]],
             "angle": 90}
        ],
        "parameters": [
            {"kind": "bool", "name": "b", "value": true, "description": "flag"},
            {"kind": "int", "name": "i", "value": -3, "not_edited": true},
            {"kind": "real", "name": "r", "value": 2.5, "value_with_unit": "2.5 um",
             "unit_type": 4, "evaluated": true},
            {"kind": "string", "name": "s", "value": "text", "display_on_schematic": false},
            {"kind": "layer", "name": "l", "value": 1, "value_text": "M1:drawing",
             "not_netlisted": true}
        ],
        "options": {"item_prefix": "L"},
        "macro_body": "{ draw();\n}",
        "symbol": {"kind": "differential", "ports": 1}
    })");
}

inline nlohmann::json goodLayout() {
    return nlohmann::json::parse(R"({
        "format": "layout/1", "cell": "coil", "dbu_per_um": 1000,
        "layers": [
            {"layer": 1, "datatype": 0, "name": "M1", "purpose": "drawing",
             "polygons": [[[0, 0], [10, 0], [10, 10]], [[0, 0], [2, 0], [2, 2], [0, 2]]],
             "lines": [[[0, 0], [0, 9]]]},
            {"layer": 9, "datatype": 0, "name": "Mark", "purpose": "drawing", "polygons": []}
        ],
        "texts": [
            {"text": "A", "layer": 1, "datatype": 2, "name": "M1", "purpose": "pin",
             "x": 1, "y": 2},
            {"text": "note", "layer": 63, "datatype": 0, "name": "TEXT", "purpose": "drawing",
             "x": -5, "y": 6},
            {"text": "label", "layer": 1, "datatype": 25, "name": "M1", "purpose": "text",
             "x": 0, "y": 0},
            {"text": "unseen", "layer": 9, "datatype": 0, "name": "Mark", "purpose": "drawing",
             "x": 0, "y": 0}
        ]
    })");
}

/// The two files of a component in a directory of their own.
class Inputs {
public:
    nlohmann::json component = goodComponent();
    nlohmann::json layout = goodLayout();

    std::string componentFile() const { return directory_.str() + "/component.json"; }
    std::string layoutFile() const { return directory_.str() + "/layout.json"; }

    Component readBack() const {
        ovalis::test::writeText(componentFile(), component.dump());
        return readComponent(componentFile());
    }

    Layout readLayoutBack(const Component& of) const {
        ovalis::test::writeText(layoutFile(), layout.dump());
        return readLayout(of);
    }

    /// What reading complains about, without the file's name; empty when it does not.
    std::string complaint() const {
        return withoutFile([this] { readBack(); }, componentFile());
    }

    std::string layoutComplaint() const {
        const Component of = readBack();
        return withoutFile([&] { readLayoutBack(of); }, layoutFile());
    }

    template <class Body>
    static std::string withoutFile(Body body, const std::string& file) {
        try {
            body();
        } catch (const InputError& error) {
            const std::string text = error.what();
            return text.starts_with(file + ": ") ? text.substr(file.size() + 2)
                                                 : "names no file: " + text;
        }
        return "";
    }

private:
    ovalis::test::TemporaryDirectory directory_;
};

/// One change to a good file, and the complaint it must bring. An empty `value` removes the key.
struct BadInput {
    const char* pointer;
    const char* value;
    const char* complaint;
};

inline void apply(nlohmann::json& document, const BadInput& bad) {
    const nlohmann::json::json_pointer pointer(bad.pointer);
    if (*bad.value != '\0')
        document[pointer] = nlohmann::json::parse(bad.value);
    else if (document[pointer.parent_pointer()].is_object())
        document[pointer.parent_pointer()].erase(pointer.back());
}

} // namespace component::test
