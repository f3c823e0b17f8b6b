#include "DisplayScenes.h"
#include "simulator/RenderDisplay.h"

#include <cstddef>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

std::size_t allocationCount = 0;

} // namespace

// Every request for memory of this program is counted.
void* operator new(std::size_t size)
{
    ++allocationCount;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace orvim {
namespace {

TEST(RenderDisplay, AsksForNoMemoryOnceItsPicturesAreUnpacked)
{
    for (const auto& [name, fields] : test::displayScenes()) {
        const auto atFirst = allocationCount;
        DisplayCanvas canvas;
        renderDisplay(fields, canvas);
        const auto before = allocationCount;
        ASSERT_GT(before, atFirst) << "the canvas itself is counted";
        renderDisplay(fields, canvas);
        EXPECT_EQ(allocationCount, before) << name;
    }
}

} // namespace
} // namespace orvim
