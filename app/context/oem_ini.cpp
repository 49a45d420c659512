#include "AppContext.h"

#include "path_strings.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

namespace {

constexpr std::size_t LongestLine = 511; ///< bytes, "\n" included

/// Cuts a file into the lines that fgets() gives with a buffer of 512 bytes, at a fraction of its price.
class LineReader
{
public:
    explicit LineReader(std::FILE *source) : file(source) { }

    /// The next line with its "\n", valid until the next call; empty at the end of the file.
    std::string_view next()
    {
        if (end - begin < LongestLine)
            fill();
        std::string_view line(buffer.data() + begin, std::min(end - begin, LongestLine));
        if (const std::size_t newline = line.find('\n'); newline != std::string_view::npos)
            line = line.substr(0, newline + 1);
        begin += line.size();
        return line;
    }

private:
    void fill()
    {
        std::memmove(buffer.data(), buffer.data() + begin, end - begin);
        end -= begin;
        begin = 0;
        end += std::fread(buffer.data() + end, 1, buffer.size() - end, file);
    }

    std::FILE *file;
    std::array<char, 65536> buffer;
    std::size_t begin = 0; ///< of what was not handed out yet
    std::size_t end = 0;
};

std::int32_t number(const char *value)
{
    return static_cast<std::int32_t>(std::strtol(value, nullptr, 10));
}

void take_vendor(const char *value)
{
    copy_str(actx.vendor, value, sizeof actx.vendor);
}

void take_url(const char *value)
{
    copy_str(actx.url, value, sizeof actx.url);
}

void take_model(const char *value)
{
    if (actx.model_count < static_cast<std::int32_t>(std::size(actx.model)))
        copy_str(actx.model[actx.model_count++], value, sizeof actx.model[0]);
}

void take_plugin(const char *value)
{
    if (actx.plugin_count < static_cast<std::int32_t>(std::size(actx.plugin)))
        copy_str(actx.plugin[actx.plugin_count++], value, sizeof actx.plugin[0]);
}

struct Key
{
    std::string_view name; ///< a "=" follows it
    void (*take)(const char *value);
};

// The order decides which key a line has: some names end in another one.
constexpr std::array Keys{
    Key{"MULTIVENDOR", [](const char *value) { actx.multivendor = number(value); }},
    Key{"PARPORT", [](const char *value) { actx.parport = number(value); }},
    Key{"PORTPLUGIN", [](const char *value) { actx.portplugin = number(value); }},
    Key{"SCANNER", [](const char *value) { actx.scanner = number(value); }},
    Key{"UPDATE_PRINTER_GROUP", [](const char *value) { actx.update_printer_group = number(value); }},
    Key{"VENDOR", take_vendor},
    Key{"URL", take_url},
    Key{"MODEL", take_model},
    Key{"PLUGIN", take_plugin},
};

/// @return the first key of the table, up to @p end, that @p text ends in, or else @p end
const Key *key_at_end(std::string_view text, const Key *end)
{
    return std::find_if(Keys.begin(), end, [text](const Key &key) { return text.ends_with(key.name); });
}

/// @return the key that the line has; Keys.end() if none
const Key *take_line(std::string_view line)
{
    // A key ends in its only "=": looking at these alone passes over most of a line, and over most lines.
    std::size_t sign = line.find('=');
    if (sign == std::string_view::npos)
        return Keys.end();
    line = line.substr(0, std::min(line.find('\0'), line.find('\n')));

    const Key *best = Keys.end();
    std::string_view value;
    for (; sign < line.size(); sign = line.find('=', sign + 1)) {
        if (const Key *const key = key_at_end(line.substr(0, sign), best); key != best) {
            best = key;
            value = line.substr(sign + 1);
        }
    }
    if (best == Keys.end())
        return best;
    std::array<char, LongestLine + 1> text;
    *std::copy(value.begin(), value.end(), text.begin()) = '\0';
    best->take(text.data());
    return best;
}

} // namespace

int read_oem_ini(const char *path)
{
    (void)dump_actx(&actx); // for a debugger, before and after
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(path, "r"), std::fclose);
    if (!file)
        return -1;

    actx.multivendor = 0;
    actx.parport = actx.portplugin = actx.scanner = actx.update_printer_group = 1;
    actx.model_count = actx.plugin_count = 0;
    LineReader lines(file.get());
    bool hasVendor = false;
    for (std::string_view line = lines.next(); !line.empty(); line = lines.next()) {
        const Key *const key = take_line(line);
        hasVendor |= key != Keys.end() && key->take == take_vendor;
    }
    if (hasVendor) { // the last one stands
        str_lower(actx.vendor, actx.vendor_lc, sizeof actx.vendor_lc);
        str_upper(actx.vendor, actx.vendor_uc, sizeof actx.vendor_uc);
    }
    (void)dump_actx(&actx);
    return 0;
}
