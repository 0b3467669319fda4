#include "confaccess/arena.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace paramgen::testing {
namespace {

struct Piece {
    unsigned char* bytes;
    std::size_t size;
    unsigned char mark;
};

/// Allocates a piece, checks that it is aligned and zero-filled, and fills it with `mark`.
Piece TakeMarked(Arena* arena, std::size_t size, unsigned char mark) {
    auto* bytes = static_cast<unsigned char*>(arena->Take(size));
    EXPECT_NE(bytes, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % 8, 0U);
    EXPECT_TRUE(std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; }));
    std::memset(bytes, mark, size);
    return {.bytes = bytes, .size = size, .mark = mark};
}

void ExpectMarked(const Piece& piece) {
    EXPECT_TRUE(std::all_of(piece.bytes, piece.bytes + piece.size,
                            [&](unsigned char byte) { return byte == piece.mark; }));
}

TEST(Arena, PiecesAreZeroFilledAndDoNotOverlap) {
    Arena arena;
    std::vector<Piece> pieces;
    // Small pieces until several chunks are full, with large ones in between.
    for (std::size_t number = 0; number < 3000; ++number) {
        const std::size_t size = number % 500 == 499 ? 70'000 + number : 1 + number % 600;
        pieces.push_back(TakeMarked(&arena, size, static_cast<unsigned char>(number % 255 + 1)));
    }
    for (const Piece& piece : pieces) {
        ExpectMarked(piece);
    }
}

TEST(Arena, PiecesMayHaveEverySizeAroundThatOfAChunk) {
    for (const std::size_t size : {std::size_t{64} * 1024, std::size_t{256} * 1024}) {
        for (std::size_t around = size - 20; around < size + 20; ++around) {
            Arena arena;
            const Piece first = TakeMarked(&arena, around, 1);
            const Piece second = TakeMarked(&arena, around, 2);
            const Piece third = TakeMarked(&arena, 100, 3);
            ExpectMarked(first);
            ExpectMarked(second);
            ExpectMarked(third);
        }
    }
}

TEST(Arena, LargePiecesAreZeroFilledToo) {
    Arena arena;
    for (const std::size_t size : {std::size_t{2} << 20U, std::size_t{5} << 20U}) {
        char* piece = static_cast<char*>(arena.Take(size));
        ASSERT_NE(piece, nullptr);
        EXPECT_EQ(std::count(piece, piece + size, '\0'), static_cast<std::ptrdiff_t>(size));
        std::fill(piece, piece + size, 'x');
    }
}

TEST(Arena, RefusesSizesBeyondAllMemory) {
    Arena arena;
    EXPECT_EQ(arena.Take(UINT64_MAX), nullptr);
    EXPECT_EQ(arena.Take(UINT64_MAX - 7), nullptr);
    ExpectMarked(TakeMarked(&arena, 100, 1));
}

TEST(Arena, UsesTheGivenMemoryFirst) {
    alignas(8) char memory[1000] = {};
    Arena arena(memory);
    const Piece first = TakeMarked(&arena, 601, 1);
    EXPECT_EQ(reinterpret_cast<char*>(first.bytes), memory);
    const Piece large = TakeMarked(&arena, 100'000, 2);
    const Piece second = TakeMarked(&arena, 392, 3);
    EXPECT_EQ(reinterpret_cast<char*>(second.bytes), memory + 608);
    const Piece third = TakeMarked(&arena, 1, 4);
    for (const Piece& piece : {first, large, second, third}) {
        ExpectMarked(piece);
    }
}

TEST(Arena, KeepsTheBeginningOfTheLastPiece) {
    for (const std::size_t size : {100U, 1000U, 100'000U}) {
        Arena arena;
        auto* piece = static_cast<unsigned char*>(arena.Take(size));
        ASSERT_NE(piece, nullptr);
        std::memset(piece, 1, 17);
        arena.KeepOfLast(piece, 17);
        const Piece next = TakeMarked(&arena, 500, 2);
        EXPECT_TRUE(size > 10'000 || next.bytes == piece + 24) << size;
        ExpectMarked({.bytes = piece, .size = 17, .mark = 1});
        arena.KeepOfLast(piece, 1);  // no effect: it is not the last piece any more
        ExpectMarked(TakeMarked(&arena, 100, 3));
        ExpectMarked(next);
    }
}

TEST(Arena, ReleasesThePiecesAfterAMark) {
    // After the mark: small pieces, enough of them to begin another chunk, and a large one. Before
    // it: nothing, one piece, and so many that the chunk is nearly full.
    for (const int before : {0, 1, 40}) {
        for (const int after : {0, 1, 300}) {
            for (const std::size_t large : {0U, 100'000U}) {
                Arena arena;
                std::vector<Piece> kept;
                for (int number = 0; number < before; ++number) {
                    kept.push_back(
                        TakeMarked(&arena, 6000, static_cast<unsigned char>(number + 1)));
                }
                const Arena::Mark mark = arena.Now();
                void* const next = before == 1 ? arena.Take(1) : nullptr;
                for (int number = 0; number < after; ++number) {
                    TakeMarked(&arena, 1000, 0xFF);
                }
                if (large != 0) {
                    TakeMarked(&arena, large, 0xFF);
                }
                TakeMarked(&arena, 10, 0xFF);
                arena.BackTo(mark);
                for (const Piece& piece : kept) {
                    ExpectMarked(piece);
                }
                if (next != nullptr) {
                    EXPECT_EQ(arena.Take(1), next);
                }
                // New pieces are zero-filled again and do not overlap the kept ones.
                for (int number = 0; number < 400; ++number) {
                    kept.push_back(TakeMarked(&arena, 1000, 0x55));
                }
                for (const Piece& piece : kept) {
                    ExpectMarked(piece);
                }
            }
        }
    }
}

}  // namespace
}  // namespace paramgen::testing
