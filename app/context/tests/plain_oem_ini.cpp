#include "plain_oem_ini.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// NOLINTBEGIN(modernize-avoid-c-arrays): the fields of the record are such arrays.

template <std::size_t Size> void put(char (&field)[Size], const std::string &text)
{
    std::fill(std::begin(field), std::end(field), '\0');
    text.copy(field, Size - 1);
}

template <std::size_t Size> bool ends(const char (&field)[Size])
{
    return std::memchr(field, '\0', Size) != nullptr;
}

template <std::size_t Entries, std::size_t Size> bool ends(const char (&list)[Entries][Size])
{
    return std::ranges::all_of(list, [](const char(&entry)[Size]) { return ends(entry); });
}

template <std::size_t Entries, std::size_t Size>
bool is_same_list(const char (&left)[Entries][Size], const char (&right)[Entries][Size], int count)
{
    return std::equal(left, left + count, right,
                      [](const char(&one)[Size], const char(&other)[Size]) { return std::strcmp(one, other) == 0; });
}

// NOLINTEND(modernize-avoid-c-arrays)

std::string with_case(std::string text, int (*convert)(int))
{
    for (char &c : text)
        c = static_cast<char>(convert(static_cast<unsigned char>(c)));
    return text;
}

void take(AppContext &context, const std::string &key, const std::string &value)
{
    const auto number = static_cast<std::int32_t>(std::strtol(value.c_str(), nullptr, 10));
    if (key == "MULTIVENDOR=")
        context.multivendor = number;
    else if (key == "PARPORT=")
        context.parport = number;
    else if (key == "PORTPLUGIN=")
        context.portplugin = number;
    else if (key == "SCANNER=")
        context.scanner = number;
    else if (key == "UPDATE_PRINTER_GROUP=")
        context.update_printer_group = number;
    else if (key == "URL=")
        put(context.url, value);
    else if (key == "MODEL=" && context.model_count < 32)
        put(context.model[context.model_count++], value);
    else if (key == "PLUGIN=" && context.plugin_count < 5)
        put(context.plugin[context.plugin_count++], value);
    if (key == "VENDOR=") {
        put(context.vendor, value);
        put(context.vendor_lc, with_case(value, std::tolower));
        put(context.vendor_uc, with_case(value, std::toupper));
    }
}

} // namespace

AppContext plain_oem_ini(const char *path, const AppContext &context)
{
    std::FILE *const file = std::fopen(path, "r");
    if (!file)
        return context;
    AppContext result = context;
    result.multivendor = result.model_count = result.plugin_count = 0;
    result.parport = result.portplugin = result.scanner = result.update_printer_group = 1;
    std::array<char, 512> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), file)) {
        for (const char *key : {"MULTIVENDOR=", "PARPORT=", "PORTPLUGIN=", "SCANNER=", "UPDATE_PRINTER_GROUP=",
                                "VENDOR=", "URL=", "MODEL=", "PLUGIN="}) {
            const char *const found = std::strstr(line.data(), key);
            if (!found)
                continue;
            std::string value = found + std::strlen(key);
            if (value.ends_with('\n'))
                value.pop_back();
            take(result, key, value);
            break;
        }
    }
    (void)std::fclose(file); // nothing was written
    return result;
}

bool is_sound(const AppContext &context)
{
    return ends(context.app_file_dir) && ends(context.package_dir) && ends(context.share_dir) && ends(context.vendor)
        && ends(context.vendor_lc) && ends(context.vendor_uc) && ends(context.url) && ends(context.model)
        && ends(context.plugin) && context.model_count >= 0 && context.model_count <= 32 && context.plugin_count >= 0
        && context.plugin_count <= 5;
}

bool is_same(const AppContext &left, const AppContext &right)
{
    const auto is_same_text = [](const char *one, const char *other) { return std::strcmp(one, other) == 0; };
    return is_same_text(left.app_file_dir, right.app_file_dir) && is_same_text(left.package_dir, right.package_dir)
        && is_same_text(left.share_dir, right.share_dir) && is_same_text(left.vendor, right.vendor)
        && is_same_text(left.vendor_lc, right.vendor_lc) && is_same_text(left.vendor_uc, right.vendor_uc)
        && is_same_text(left.url, right.url) && left.model_count == right.model_count
        && is_same_list(left.model, right.model, left.model_count) && left.plugin_count == right.plugin_count
        && is_same_list(left.plugin, right.plugin, left.plugin_count) && left.multivendor == right.multivendor
        && left.parport == right.parport && left.portplugin == right.portplugin && left.scanner == right.scanner
        && left.update_printer_group == right.update_printer_group;
}
