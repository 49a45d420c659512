#include "plain_tiff_tale.h"

#include <algorithm>
#include <map>
#include <vector>

namespace {

using Number = std::uint64_t;

struct Field
{
    Number tag = 0;
    Number type = 0;
    Number count = 0;
    Number at = 0; ///< of the value
    Number room = 0; ///< where a short value would stand
};

/// Bytes of a value, and of the numbers in it, by the type's number in TIFF 6.0 and BigTIFF.
const std::map<Number, std::pair<Number, Number>> Types{
    {1, {1, 1}}, {2, {1, 1}},  {3, {2, 2}},  {4, {4, 4}},  {5, {8, 4}},  {6, {1, 1}},  {7, {1, 1}},  {8, {2, 2}},
    {9, {4, 4}}, {10, {8, 4}}, {11, {4, 4}}, {12, {8, 8}}, {13, {4, 4}}, {16, {8, 8}}, {17, {8, 8}}, {18, {8, 8}},
};

/// Tags of places, and the tags of the lengths of what stands there.
const std::map<Number, Number> Lengths{{273, 279}, {324, 325}, {288, 289}, {513, 514}};
constexpr Number SubDirectories = 330;

class Teller
{
public:
    explicit Teller(std::span<const std::uint8_t> bytes) : file(bytes) { }

    [[nodiscard]] bool tell()
    {
        isBig = number(0, 1) == 'M';
        isLarge = number(2, 2) == 43;
        return tellChain(isLarge ? number(8, 8) : number(4, 4), true);
    }
    [[nodiscard]] const std::string &tale() const { return text; }

private:
    [[nodiscard]] Number number(Number at, Number width)
    {
        if (at > file.size() || width > file.size() - at) {
            isOutside = true;
            return 0;
        }
        Number value = 0;
        for (Number i = 0; i < width; ++i)
            value = value << 8U | file[at + (isBig ? i : width - 1 - i)];
        return value;
    }

    void say(Number value) { text += std::to_string(value) + ' '; }

    void sayBytes(Number at, Number count)
    {
        if (count == 0)
            return; // nobody looks there
        if (at > file.size() || count > file.size() - at) {
            isOutside = true;
            return;
        }
        text.append(reinterpret_cast<const char *>(file.data()) + at, count);
    }

    [[nodiscard]] Field field(Number at)
    {
        const Number room = isLarge ? 8 : 4;
        Field one{
            .tag = number(at, 2), .type = number(at + 2, 2), .count = number(at + 4, room), .room = at + 4 + room};
        one.at = one.room;
        if (Types.contains(one.type) && one.count > room / Types.at(one.type).first)
            one.at = number(one.room, room);
        return one;
    }

    [[nodiscard]] bool tellChain(Number at, bool isChain)
    {
        for (; at != 0 && !isOutside; at = isChain ? at : 0) {
            const Number counts = isLarge ? 8 : 2;
            const Number size = isLarge ? 20 : 12;
            const Number count = number(at, counts);
            std::vector<Field> fields;
            for (Number i = 0; i < count && !isOutside; ++i)
                fields.push_back(field(at + counts + i * size));
            text += "\ndirectory";
            for (const Field &one : fields)
                tellField(fields, one);
            at = number(at + counts + count * size, isLarge ? 8 : 4);
        }
        return !isOutside;
    }

    void tellField(const std::vector<Field> &fields, const Field &one)
    {
        text += "\n tag ";
        say(one.tag);
        const bool isPlace = one.type == 3 || one.type == 4 || one.type == 13 || one.type == 16 || one.type == 18;
        const bool namesDirectories = one.tag == SubDirectories || one.tag == 34665 || one.tag == 34853
            || one.tag == 40965 || one.tag == 400 || one.type == 13 || one.type == 18;
        const bool namesData = Lengths.contains(one.tag) || (one.tag >= 519 && one.tag <= 521);
        if (isPlace && namesData)
            tellData(fields, one);
        else if (isPlace && namesDirectories)
            tellBelow(one);
        else
            tellValue(one);
    }

    void tellValue(const Field &one)
    {
        say(one.type);
        say(one.count);
        if (!Types.contains(one.type)) {
            sayBytes(one.room, isLarge ? 8 : 4);
            return;
        }
        const auto [bytes, width] = Types.at(one.type);
        for (Number i = 0; i < one.count * (bytes / width) && !isOutside; ++i)
            say(number(one.at + i * width, width));
    }

    void tellBelow(const Field &one)
    {
        say(one.count);
        const Number width = Types.at(one.type).first;
        for (Number i = 0; i < one.count && !isOutside; ++i) {
            const Number place = number(one.at + i * width, width);
            if (place == 0)
                text += "none";
            else
                (void)tellChain(place, one.tag == SubDirectories);
        }
        text += "\n above";
    }

    void tellData(const std::vector<Field> &fields, const Field &one)
    {
        say(one.count);
        const Number width = Types.at(one.type).first;
        const auto lengths =
            Lengths.contains(one.tag) ? std::ranges::find(fields, Lengths.at(one.tag), &Field::tag) : fields.end();
        for (Number i = 0; i < one.count && !isOutside; ++i) {
            const Number place = number(one.at + i * width, width);
            if (place == 0)
                continue;
            if (lengths != fields.end() && Types.contains(lengths->type)) {
                const Number lengthWidth = Types.at(lengths->type).first;
                sayBytes(place, number(lengths->at + i * lengthWidth, lengthWidth));
            } else if (one.tag >= 519) {
                sayBytes(place, 16);
            }
        }
    }

    std::span<const std::uint8_t> file;
    bool isBig = false;
    bool isLarge = false;
    bool isOutside = false;
    std::string text;
};

} // namespace

std::optional<std::string> plain_tiff_tale(std::span<const std::uint8_t> file)
{
    Teller teller(file);
    if (!teller.tell())
        return std::nullopt;
    return teller.tale();
}
