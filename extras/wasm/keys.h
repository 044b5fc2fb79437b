// The table of keys for what is written in JavaScript.
#ifndef QORN_WASM_KEYS_H
#define QORN_WASM_KEYS_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fmt/settingcheck.h"

[[nodiscard]] std::vector<std::string_view> textsOf(std::span<const ConfigText> files);

/** As JSON: "keys", a list of objects with key, forms (all ways to write it), kind, help, value,
    fallback (the default), place (of the value, or empty), choices, least and most; "ignored", the
    forms of keys without an effect; "words", the forms of value words. */
[[nodiscard]] std::string keysAsJson(std::span<const ConfigText> files);

#endif
