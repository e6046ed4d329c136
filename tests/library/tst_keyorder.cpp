// The radix order of byte-string keys is exactly the order std::stable_sort
// gives them by std::string_view's comparison: random keys of every length
// around the eight-byte steps, with NUL and high bytes, few or many (below
// and above the count where radix passes start), equal keys in their order,
// and keys that share a long beginning.

#include "library/keyorder.h"
#include "testenv.h"

#include <QTest>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<uint32_t> stableOrder(const std::vector<std::string_view>& keys)
{
    std::vector<uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(),
                     [&](uint32_t a, uint32_t b) { return keys[a] < keys[b]; });
    return order;
}

std::vector<std::string_view> viewsOf(const std::vector<std::string>& keys)
{
    return std::vector<std::string_view>(keys.begin(), keys.end());
}

} // namespace

class TestKeyOrder : public QObject
{
    Q_OBJECT

private slots:
    void shouldOrderAsAStableSortDoes_data();
    void shouldOrderAsAStableSortDoes();
    void shouldPutAKeyBeforeTheLongerKeysItBegins();
    void shouldSortKeysThatShareALongBeginning();
    void shouldSortAFewKeysThatShareMoreThanSixteenBytes();
    void shouldGiveNothingForNoKeys();
};

void TestKeyOrder::shouldOrderAsAStableSortDoes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("alphabet");
    QTest::newRow("a few, by comparison") << 100 << 3;
    QTest::newRow("some thousands, radix passes") << 5000 << 4;
    QTest::newRow("many, small alphabet: long equal runs") << 200000 << 2;
    QTest::newRow("many, every byte") << 200000 << 256;
}

void TestKeyOrder::shouldOrderAsAStableSortDoes()
{
    QFETCH(int, count);
    QFETCH(int, alphabet);
    std::mt19937 random(static_cast<unsigned>(count * 31 + alphabet));
    // Lengths cluster around the eight-byte steps; the bytes come from the
    // ends of the byte range (NUL, 0x7f/0x80, 0xff) so that signedness and
    // padding both matter.
    const unsigned char bytes[] = {0x00, 0x01, 0x7f, 0x80, 0xff, 'a', 'b', 'c'};
    std::vector<std::string> keys;
    keys.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const int length = static_cast<int>(random() % 26);
        std::string key;
        for (int n = 0; n < length; ++n) {
            const unsigned pick = random();
            key.push_back(static_cast<char>(
                alphabet >= 256 ? pick % 256 : bytes[pick % static_cast<unsigned>(alphabet)]));
        }
        keys.push_back(key);
    }
    const std::vector<std::string_view> views = viewsOf(keys);
    QCOMPARE(orderOfKeys(views), stableOrder(views));
}

void TestKeyOrder::shouldPutAKeyBeforeTheLongerKeysItBegins()
{
    // Eight bytes, eight and a NUL, and the same again; the radix passes
    // start only above some hundreds of keys, so both ways are run.
    const std::string eight = "abcdefgh";
    for (const int copies : {1, 400}) {
        std::vector<std::string> keys;
        for (int i = 0; i < copies; ++i) {
            keys.push_back(eight + std::string(1, '\0'));
            keys.push_back(eight);
            keys.push_back(std::string("abcdefg"));
            keys.push_back(std::string("abcdefg") + std::string(1, '\0'));
            keys.push_back(std::string());
        }
        const std::vector<std::string_view> views = viewsOf(keys);
        const std::vector<uint32_t> order = orderOfKeys(views);
        QCOMPARE(order, stableOrder(views));
        QCOMPARE(views[order.front()], std::string_view());
        QCOMPARE(views[order.back()], std::string_view(keys[0]));
    }
}

void TestKeyOrder::shouldSortKeysThatShareALongBeginning()
{
    // 20 000 bytes in common: thousands of steps of eight, which a sort that
    // went down one call a step would pay for with its stack.
    const std::string common(20000, 'x');
    std::vector<std::string> keys;
    for (int i = 0; i < 1000; ++i)
        keys.push_back(common + std::to_string((i * 7919) % 1000));
    keys.push_back(common);
    const std::vector<std::string_view> views = viewsOf(keys);
    const std::vector<uint32_t> order = orderOfKeys(views);
    QCOMPARE(order, stableOrder(views));
    QCOMPARE(order.front(), 1000u);
}

void TestKeyOrder::shouldSortAFewKeysThatShareMoreThanSixteenBytes()
{
    // Fewer keys than the radix passes start at: told apart by comparison,
    // past the bytes each item carries, and by length.
    std::mt19937 random(7);
    const std::string common = "twenty bytes in comm";
    std::vector<std::string> keys;
    for (int i = 0; i < 300; ++i) {
        std::string key = common;
        const int length = static_cast<int>(random() % 6);
        for (int n = 0; n < length; ++n)
            key.push_back(static_cast<char>("\0ab"[random() % 3]));
        keys.push_back(key);
    }
    keys.push_back(common.substr(0, 16));
    keys.push_back(common.substr(0, 17));
    const std::vector<std::string_view> views = viewsOf(keys);
    QCOMPARE(orderOfKeys(views), stableOrder(views));
}

void TestKeyOrder::shouldGiveNothingForNoKeys()
{
    QVERIFY(orderOfKeys({}).empty());
}

TW_TEST_MAIN(TestKeyOrder)
#include "tst_keyorder.moc"
