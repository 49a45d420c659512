// A colour is its highest, lowest and middle channel. QColor goes through hue, saturation and value, and there
// the new highest and lowest channel depend on those two alone, while the middle one keeps its place between
// them, counted in steps of a 6000th. So QColor is asked once for each pair of highest and lowest, and the
// middle channel is worked out in float numbers. Where these might fall on the other side of a rounding border
// than QColor's own, QColor is asked for that word too.
#include "brightness.h"

#include "two_halves.h"

#include <QColor>
#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr int HueSteps = 6000; // from one corner of the colour wheel to the next
constexpr float WideStep = 257.0F; // from one 8-bit value to the next in 16 bits
// Float results that lie closer to a rounding border are not trusted. In units of 16 bits, of which the ends of
// the line are known to a half; and in hue steps, where a place near the half may be rounded either way.
constexpr float EndDoubt = 0.55F;
constexpr float HueDoubt = 0.02F;

QColor brightened(const QColor &color, int percent)
{
    return percent > 0 ? color.lighter(100 + percent) : color.darker(100 - percent);
}

QRgb brightened(QRgb word, int percent)
{
    return (word & ~RGB_MASK) | (brightened(QColor(word), percent).rgb() & RGB_MASK);
}

/// A colour by its ends, which is where it stands in the table.
struct Ends
{
    int highest;
    int lowest;

    [[nodiscard]] int index() const { return 256 * highest + lowest; }
};

/// New highest and lowest channel in 16 bits, as high and low half of a word.
std::vector<quint32> new_ends(int percent)
{
    std::vector<quint32> table(std::size_t{256} * 256);
    for (int highest = 0; highest < 256; ++highest) {
        for (int lowest = 0; lowest <= highest; ++lowest) {
            const QRgba64 color = brightened(QColor(highest, lowest, lowest), percent).rgba64();
            table[static_cast<std::size_t>(Ends{highest, lowest}.index())] = quint32{color.red()} << 16 | color.blue();
        }
    }
    return table;
}

int red(QRgb word)
{
    return static_cast<int>(word >> 16 & 0xff);
}

int green(QRgb word)
{
    return static_cast<int>(word >> 8 & 0xff);
}

int blue(QRgb word)
{
    return static_cast<int>(word & 0xff);
}

[[gnu::always_inline]] inline Ends ends_of(QRgb word)
{
    return {std::max(std::max(red(word), green(word)), blue(word)),
            std::min(std::min(red(word), green(word)), blue(word))};
}

int nearest(float value)
{
    const float raised = value + 0.5F;
    return static_cast<int>(raised);
}

/// A value of 16 bits in 8 bits, before it is cut to a whole number, which then rounds it.
float narrowed(float wide)
{
    return (wide + WideStep / 2) * (1 / WideStep);
}

struct Answer
{
    QRgb word; ///< the new word
    quint32 isDoubtful; ///< 1 if QColor has to be asked, else 0
};

/// The new word for one whose new ends are known.
[[gnu::always_inline]] inline Answer find_answer(QRgb word, quint32 newEnds)
{
    const auto [highest, lowest] = ends_of(word);
    const int middle = red(word) + green(word) + blue(word) - highest - lowest;

    const auto wideHighest = static_cast<float>(static_cast<int>(newEnds >> 16));
    const auto wideLowest = static_cast<float>(static_cast<int>(newEnds & 0xffff));
    const float place =
        static_cast<float>(HueSteps * (highest - middle)) / static_cast<float>(std::max(highest - lowest, 1));
    const int step = nearest(place);
    const float stepLength = (wideHighest - wideLowest) * (1.0F / HueSteps);
    const float newMiddle = narrowed(wideHighest - stepLength * static_cast<float>(step));

    const int newHighest = static_cast<int>(narrowed(wideHighest));
    const int newLowest = static_cast<int>(narrowed(wideLowest));
    const auto changed = [&, top = highest, bottom = lowest](int value) {
        const int lowOrMiddle = value == bottom ? newLowest : static_cast<int>(newMiddle);
        return static_cast<QRgb>(value == top ? newHighest : lowOrMiddle);
    };
    const QRgb newWord =
        (word & ~RGB_MASK) | changed(red(word)) << 16 | changed(green(word)) << 8 | changed(blue(word));

    const float fromBorder = std::abs(newMiddle - static_cast<float>(nearest(newMiddle))) * WideStep;
    const float fromStep = std::abs(place - static_cast<float>(step));
    const auto isEndDoubtful = static_cast<quint32>(fromBorder < EndDoubt);
    const auto isStepDoubtful = static_cast<quint32>(fromStep > 0.5F - HueDoubt);
    const auto wouldStepMatter = static_cast<quint32>(fromBorder < EndDoubt + stepLength);
    return {newWord, isEndDoubtful | (isStepDoubtful & wouldStepMatter)};
}

/// What is known of some words. The loops over a block are short and of one kind each, without branches and of
/// fixed length, so that compilers make them do several words at once.
constexpr std::size_t BlockWords = 1024;
constexpr std::size_t WorthwhileBlocks = 128;
struct Block
{
    std::array<int, BlockWords> indices;
    std::array<quint32, BlockWords> newEnds;
    std::array<uchar, BlockWords> doubts;
};

[[gnu::always_inline]] inline void find_answers(const QRgb *__restrict words, QRgb *__restrict result,
                                                Block &__restrict block, const std::vector<quint32> &table)
{
    for (std::size_t i = 0; i < BlockWords; ++i)
        block.indices[i] = ends_of(words[i]).index();
    for (std::size_t i = 0; i < BlockWords; ++i)
        block.newEnds[i] = table[static_cast<std::size_t>(block.indices[i])];
    for (std::size_t i = 0; i < BlockWords; ++i) {
        const Answer answer = find_answer(words[i], block.newEnds[i]);
        result[i] = answer.word;
        block.doubts[i] = static_cast<uchar>(answer.isDoubtful);
    }
}

using AnswerFinder = void (*)(const QRgb *__restrict words, QRgb *__restrict result, Block &__restrict block,
                              const std::vector<quint32> &table);

void find_answers_plainly(const QRgb *__restrict words, QRgb *__restrict result, Block &__restrict block,
                          const std::vector<quint32> &table)
{
    find_answers(words, result, block, table);
}

#ifdef __x86_64__
[[gnu::target("avx2,fma")]] void find_answers_by_eights(const QRgb *__restrict words, QRgb *__restrict result,
                                                        Block &__restrict block, const std::vector<quint32> &table)
{
    find_answers(words, result, block, table);
}
#endif

AnswerFinder answer_finder()
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return find_answers_by_eights;
#endif
    return find_answers_plainly;
}

std::size_t next_doubt(const Block &block, std::size_t from)
{
    const uchar *const begin = block.doubts.data();
    const auto *const doubt = static_cast<const uchar *>(std::memchr(begin + from, 1, BlockWords - from));
    return doubt ? static_cast<std::size_t>(doubt - begin) : BlockWords;
}

void ask_for_each(std::span<const QRgb> words, std::span<QRgb> result, int percent)
{
    std::ranges::transform(words, result.begin(), [percent](QRgb word) { return brightened(word, percent); });
}

} // namespace

void brighten_words(std::span<const QRgb> words, std::span<QRgb> result, int percent)
{
    // The table costs as much as asking for some 33000 words.
    constexpr std::size_t ManyWords = 65536;
    if (words.size() < ManyWords)
        ask_for_each(words, result, percent);
    else
        brighten_many_words(words, result, percent);
}

void brighten_many_words(std::span<const QRgb> words, std::span<QRgb> result, int percent)
{
    const std::vector<quint32> table = new_ends(percent);
    const AnswerFinder findAnswers = answer_finder();
    const std::size_t wholeBlocks = words.size() / BlockWords;
    in_two_halves(wholeBlocks, WorthwhileBlocks, [&](std::size_t begin, std::size_t end) {
        Block block{};
        for (std::size_t at = begin * BlockWords; at < end * BlockWords; at += BlockWords) {
            const QRgb *const asked = words.data() + at;
            QRgb *const answers = result.data() + at;
            findAnswers(asked, answers, block, table);
            for (std::size_t i = next_doubt(block, 0); i < BlockWords; i = next_doubt(block, i + 1))
                answers[i] = brightened(asked[i], percent);
        }
    });
    const std::size_t done = wholeBlocks * BlockWords;
    ask_for_each(words.subspan(done), result.subspan(done), percent);
}
