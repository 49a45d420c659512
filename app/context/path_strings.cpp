#include "path_strings.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

#include <unistd.h>

namespace {

constexpr std::size_t PathSize = 4096;
constexpr std::size_t CaseSize = 1024;

const char *text_or_empty(const char *text)
{
    return text ? text : "";
}

char *append_str(char *buf, const char *text, std::size_t size)
{
    const std::size_t length = std::strlen(buf);
    copy_str(buf + length, text, size - length);
    return buf;
}

char *copy_with_case(const char *src, char *dst, int size, int (*convert)(int))
{
    if (!dst || size <= 0)
        return dst;
    const char *const text = text_or_empty(src);
    const std::size_t length = std::min(std::strlen(text), static_cast<std::size_t>(size) - 1);
    for (std::size_t i = 0; i < length; ++i)
        dst[i] = static_cast<char>(convert(static_cast<unsigned char>(text[i])));
    dst[length] = '\0';
    return dst;
}

} // namespace

char *copy_str(char *dst, const char *src, std::size_t size)
{
    if (!dst || size == 0)
        return dst;
    std::strncpy(dst, text_or_empty(src), size);
    dst[size - 1] = '\0';
    return dst;
}

char *strip_newline(char *s)
{
    const std::size_t length = std::strlen(text_or_empty(s));
    if (length > 0 && s[length - 1] == '\n')
        s[length - 1] = '\0';
    return s;
}

char *abs_path(const char *path, char *buf, std::size_t size)
{
    static char nothing = '\0';
    if (!buf)
        return &nothing;
    if (!path || *path == '/' || size == 0)
        return copy_str(buf, path, size);

    if (!::getcwd(buf, size))
        buf[0] = '\0';
    const std::size_t length = std::strlen(buf);
    // Intended: a current directory that ends in "/", which is the root alone, loses it to the path.
    if (length > 0 && buf[length - 1] == '/')
        buf[length - 1] = '\0';
    else if (length > 0)
        append_str(buf, "/", size);
    return append_str(buf, std::strncmp(path, "./", 2) == 0 ? path + 2 : path, size);
}

char *abs_path_static(const char *path)
{
    static std::array<char, PathSize> buffer;
    return abs_path(path, buffer.data(), buffer.size());
}

char *join_path(const char *dir, const char *name, char *buf, std::size_t size)
{
    if (!buf || size == 0)
        return buf;
    copy_str(buf, dir, size);
    const std::size_t length = std::strlen(buf);
    if (length == 0 || buf[length - 1] != '/')
        append_str(buf, "/", size);
    return append_str(buf, name, size);
}

char *join_path_static(const char *dir, const char *name)
{
    static std::array<char, PathSize> buffer;
    return join_path(dir, name, buffer.data(), buffer.size());
}

char *str_lower(const char *src, char *dst, int size)
{
    return copy_with_case(src, dst, size, std::tolower);
}

char *str_upper(const char *src, char *dst, int size)
{
    return copy_with_case(src, dst, size, std::toupper);
}

char *str_lower_static(const char *src)
{
    static std::array<char, CaseSize> buffer;
    return str_lower(src, buffer.data(), static_cast<int>(buffer.size()));
}

char *str_upper_static(const char *src)
{
    static std::array<char, CaseSize> buffer;
    return str_upper(src, buffer.data(), static_cast<int>(buffer.size()));
}
