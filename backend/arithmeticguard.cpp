#include "arithmeticguard.h"

#include <mutex>

#if defined(__x86_64__) && defined(__linux__)
#include <csignal>
#include <cstdint>
#include <cstring>
#include <ucontext.h>
#define NODESCOPE_GUARD_DIVISION 1
#endif

namespace Backend {

namespace {

thread_local unsigned t_overflows = 0;

#ifdef NODESCOPE_GUARD_DIVISION

struct sigaction s_previous;

// The machine register of an x86-64 register number, as the signal context holds it.
greg_t* registerOf(ucontext_t* context, int number)
{
    static const int map[16] = {REG_RAX, REG_RCX, REG_RDX, REG_RBX, REG_RSP, REG_RBP,
                                REG_RSI, REG_RDI, REG_R8,  REG_R9,  REG_R10, REG_R11,
                                REG_R12, REG_R13, REG_R14, REG_R15};
    return &context->uc_mcontext.gregs[map[number & 15]];
}

// Decodes the signed division at the faulting address: its length, whether it is 64 bits
// wide, and the divisor. False for anything that is not a signed division.
bool decodeSignedDivision(ucontext_t* context, int* length, bool* wide, std::int64_t* divisor)
{
    const auto* ip = reinterpret_cast<const unsigned char*>(context->uc_mcontext.gregs[REG_RIP]);
    int at = 0;
    unsigned rex = 0;
    if ((ip[at] & 0xF0) == 0x40) {
        rex = ip[at++];
    }
    if (ip[at++] != 0xF7) {
        return false;
    }
    const unsigned modrm = ip[at++];
    const unsigned mod = modrm >> 6;
    const unsigned reg = (modrm >> 3) & 7;
    unsigned rm = modrm & 7;
    if (reg != 7) { // F7 /7 is IDIV
        return false;
    }
    *wide = (rex & 0x08) != 0;
    if (mod == 3) {
        const std::int64_t value = *registerOf(context, int(rm | ((rex & 1) << 3)));
        *divisor = *wide ? value : std::int64_t(std::int32_t(value));
        *length = at;
        return true;
    }
    std::uint64_t address = 0;
    if (rm == 4) {
        const unsigned sib = ip[at++];
        const unsigned scale = sib >> 6;
        const unsigned index = ((sib >> 3) & 7) | ((rex & 2) << 2);
        const unsigned base = (sib & 7) | ((rex & 1) << 3);
        if (index != 4) {
            address += std::uint64_t(*registerOf(context, int(index))) << scale;
        }
        if ((base & 7) == 5 && mod == 0) {
            std::int32_t d;
            std::memcpy(&d, ip + at, 4);
            at += 4;
            address += std::uint64_t(std::int64_t(d));
        } else {
            address += std::uint64_t(*registerOf(context, int(base)));
        }
    } else if (rm == 5 && mod == 0) {
        std::int32_t d;
        std::memcpy(&d, ip + at, 4);
        at += 4;
        // Relative to the next instruction, which ends here.
        address = std::uint64_t(context->uc_mcontext.gregs[REG_RIP]) + std::uint64_t(at) +
                  std::uint64_t(std::int64_t(d));
    } else {
        rm |= (rex & 1) << 3;
        address = std::uint64_t(*registerOf(context, int(rm)));
    }
    if (mod == 1) {
        address += std::uint64_t(std::int64_t(std::int8_t(ip[at++])));
    } else if (mod == 2) {
        std::int32_t d;
        std::memcpy(&d, ip + at, 4);
        at += 4;
        address += std::uint64_t(std::int64_t(d));
    }
    if (*wide) {
        std::memcpy(divisor, reinterpret_cast<const void*>(address), 8);
    } else {
        std::int32_t d;
        std::memcpy(&d, reinterpret_cast<const void*>(address), 4);
        *divisor = d;
    }
    *length = at;
    return true;
}

void onArithmeticTrap(int signal, siginfo_t* info, void* raw)
{
    auto* context = static_cast<ucontext_t*>(raw);
    int length = 0;
    bool wide = false;
    std::int64_t divisor = 0;
    if (info->si_code == FPE_INTDIV && decodeSignedDivision(context, &length, &wide, &divisor) &&
        divisor == -1) {
        greg_t* rax = registerOf(context, 0);
        greg_t* rdx = registerOf(context, 2);
        if (wide) {
            *rax = greg_t(INT64_MIN);
        } else {
            *rax = greg_t(std::uint32_t(INT32_MIN));
        }
        *rdx = 0;
        context->uc_mcontext.gregs[REG_RIP] += length;
        ++t_overflows;
        return;
    }
    // Not ours: the instruction runs again under the handler that was there before.
    sigaction(signal, &s_previous, nullptr);
}

#endif

} // namespace

void ArithmeticGuard::install()
{
#ifdef NODESCOPE_GUARD_DIVISION
    static std::once_flag once;
    std::call_once(once, [] {
        struct sigaction action;
        std::memset(&action, 0, sizeof action);
        action.sa_sigaction = onArithmeticTrap;
        action.sa_flags = SA_SIGINFO;
        sigemptyset(&action.sa_mask);
        sigaction(SIGFPE, &action, &s_previous);
    });
#endif
}

unsigned ArithmeticGuard::overflowCount()
{
    return t_overflows;
}

void ArithmeticGuard::countOverflow()
{
    ++t_overflows;
}

} // namespace Backend
