// Reads any bytes as an OEM.ini: the record must stay sound and equal to what the plain way makes of them.

#include "AppContext.h"
#include "fuzz_target.h"
#include "MemoryFile.h"
#include "plain_oem_ini.h"

std::vector<std::string> fuzz_seeds()
{
    return {
        "VENDOR=Acme Printers\nURL=http://acme.example/drivers\nMULTIVENDOR=0\nPARPORT=1\nPORTPLUGIN=0\nSCANNER=1\n"
        "UPDATE_PRINTER_GROUP=1\nMODEL=AP-1200\nMODEL=AP-1210n\nPLUGIN=/opt/acme/lib/port.so\n",
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    const MemoryFile file(bytes);
    const AppContext before = actx; // what the inputs before have left, which is one more thing to vary

    promise(read_oem_ini(file.path().c_str()) == 0, "any file can be read");

    promise(is_sound(actx), "the record is sound");
    promise(is_same(actx, plain_oem_ini(file.path().c_str(), before)), "the record is what the plain way reads");
}
