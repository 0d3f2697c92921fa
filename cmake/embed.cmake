# Turns data files into a C++ source that holds their bytes.
# Called as: cmake -DOUTPUT=file.cpp -DINPUTS="a.txt;b.txt" -P embed.cmake
string(REPLACE "|" ";" INPUTS "${INPUTS}")
set(body "")
set(index "")
foreach(input IN LISTS INPUTS)
    get_filename_component(name "${input}" NAME)
    string(MAKE_C_IDENTIFIER "${name}" id)
    file(READ "${input}" hex HEX)
    string(LENGTH "${hex}" hexlen)
    math(EXPR size "${hexlen} / 2")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(REGEX REPLACE "(0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,)" "\\1\n" bytes "${bytes}")
    string(APPEND body "static const unsigned char ${id}[] = {\n${bytes}0};\n")
    string(APPEND index "    {\"${name}\", {reinterpret_cast<const char*>(${id}), ${size}}},\n")
endforeach()
file(WRITE "${OUTPUT}.tmp"
"// Generated from the data files compiled into the program; do not edit.\n"
"#include \"core/codelists/embedded.h\"\n#include <array>\n#include <utility>\n\n"
"namespace parlex::embedded {\nnamespace {\n${body}\n}\n\n"
"std::string_view file(std::string_view name) {\n"
"    static const std::pair<std::string_view, std::string_view> files[] = {\n${index}    };\n"
"    for (const auto& [n, content] : files)\n        if (n == name)\n            return content;\n"
"    return {};\n}\n\n} // namespace parlex::embedded\n")
file(COPY_FILE "${OUTPUT}.tmp" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.tmp")
