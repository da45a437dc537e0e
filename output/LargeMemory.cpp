#include "output/LargeMemory.h"

#include <sys/mman.h>

#include <cstdint>

namespace curvemill {

namespace {

// The huge page size of x86-64 and of most arm64 kernels; where pages are of another size the
// advice below is only ignored.
constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kPage = 4096;

}  // namespace

void adviseHugePages(const void* data, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    // The advice goes to whole pages, those under the block's ends included: the kernel then
    // gives a huge page wherever one fits in that stretch and in the mapping around it.
    const auto begin = reinterpret_cast<std::uintptr_t>(data);
    const std::uintptr_t first = begin & ~(kPage - 1);
    const std::uintptr_t end = (begin + bytes + kPage - 1) & ~(kPage - 1);
    if (bytes >= kHugePage) {
        madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
    }
#else
    (void)data;
    (void)bytes;
#endif
}

std::optional<LargeMemory> takeLargeMemory(std::size_t bytes) {
    if (bytes == 0 || bytes > SIZE_MAX - 2 * kHugePage) {
        return std::nullopt;
    }
    // One huge page more than needed, so that the block can start on a huge page boundary.
    const std::size_t used = (bytes + kHugePage - 1) / kHugePage * kHugePage;
    const std::size_t mapped = used + kHugePage;
    void* mapping =
        mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) {
        return std::nullopt;
    }
    const auto address = reinterpret_cast<std::uintptr_t>(mapping);
    auto* data = reinterpret_cast<std::uint8_t*>((address + kHugePage - 1) & ~(kHugePage - 1));
    // Advice only: a kernel without transparent huge pages gives ordinary ones.
    adviseHugePages(data, used);
    return LargeMemory{data, mapping, mapped};
}

void giveBackLargeMemory(const LargeMemory& memory) {
    if (memory.mapping != nullptr) {
        munmap(memory.mapping, memory.mappedBytes);
    }
}

}  // namespace curvemill
