#include "AppContext.h"

#include "path_strings.h"

#include <array>
#include <cstdio>
#include <cstring>

AppContext actx = {};

namespace {

/// What stands before the last "/", or all if there is none.
void copy_directory_of(char *dst, const char *path, std::size_t size)
{
    copy_str(dst, path, size);
    if (char *const slash = std::strrchr(dst, '/'))
        *slash = '\0';
}

} // namespace

int find_installation(const char *argv0)
{
    copy_directory_of(actx.app_file_dir, abs_path_static(argv0), sizeof actx.app_file_dir);
    copy_directory_of(actx.package_dir, actx.app_file_dir, sizeof actx.package_dir);
    copy_str(actx.share_dir, actx.package_dir, sizeof actx.share_dir);
    const std::size_t length = std::strlen(actx.share_dir);
    copy_str(actx.share_dir + length, "/share", sizeof actx.share_dir - length);

    if (read_oem_ini(join_path_static(actx.share_dir, "OEM.ini")) == 0)
        return 0;
    if (read_oem_ini(join_path_static(actx.package_dir, "OEM.ini")) == 0)
        return 0;
    return read_oem_ini("OEM.ini");
}

char *dump_actx(const AppContext *ctx)
{
    static std::array<char, 1024> buffer;
    if (!ctx)
        return copy_str(buffer.data(), "null", buffer.size());

    const int length = std::snprintf(
        buffer.data(), buffer.size(),
        "%p\napp_file_dir=<%s>\npackage_dir=<%s>\nshare_dir=<%s>\nvendor=<%s>\nvendor_lc=<%s>\n"
        "vendor_uc=<%s>\nurl=<%s>\nmodel=<%s>\nmodel_count=%d\nplugin=<%s>\nplugin_count=%d\n"
        "multivendor=%d\nparport=%d\nportplugin=%d\nscanner=%d\nupdate_printer_group=%d",
        static_cast<const void *>(ctx), ctx->app_file_dir, ctx->package_dir, ctx->share_dir, ctx->vendor,
        ctx->vendor_lc, ctx->vendor_uc, ctx->url, ctx->model[0], ctx->model_count, ctx->plugin[0], ctx->plugin_count,
        ctx->multivendor, ctx->parport, ctx->portplugin, ctx->scanner, ctx->update_printer_group);
    if (length < 0)
        buffer[0] = '\0';
    return buffer.data();
}
