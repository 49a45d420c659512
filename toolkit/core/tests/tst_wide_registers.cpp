#include "wide_registers.h"

#include <QTest>

class tst_wide_registers : public QObject
{
    Q_OBJECT

private slots:
    void upperHalvesAreEmptyAfterwards();
};

void tst_wide_registers::upperHalvesAreEmptyAfterwards()
{
#ifdef __x86_64__
    if (!__builtin_cpu_supports("avx"))
        return; // no upper halves
    quint64 before = 0;
    quint64 after = 1;
    asm volatile("vxorps %%ymm15, %%ymm15, %%ymm15\n\t"
                 "vcmptrueps %%ymm15, %%ymm15, %%ymm15\n\t"
                 "vextractf128 $1, %%ymm15, %%xmm14\n\t"
                 "vmovq %%xmm14, %0"
                 : "=r"(before)
                 :
                 : "xmm14", "xmm15");

    release_wide_registers();

    asm volatile("vextractf128 $1, %%ymm15, %%xmm14\n\t"
                 "vmovq %%xmm14, %0\n\t"
                 "vzeroupper"
                 : "=r"(after)
                 :
                 : "xmm14", "xmm15");
    QCOMPARE(before, ~quint64{0});
    QCOMPARE(after, quint64{0});
#endif
}

QTEST_GUILESS_MAIN(tst_wide_registers)

#include "tst_wide_registers.moc"
