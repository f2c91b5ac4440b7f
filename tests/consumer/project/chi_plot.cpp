// Draws chi(T) = -0.2956 + 243.29 K / T from 280 to 340 K into the picture named by the first argument.
#include <tessara/tessara.h>

int main(int argc, char* argv[]) {
    if (argc != 2) {
        return 2;
    }
    CCurve chi(61);
    for (int i = 0; i < chi.m_nPoints; ++i) {
        chi.m_pX[i] = 280 + i;
        chi.m_pY[i] = -0.2956 + 243.29 / chi.m_pX[i];
    }
    COutputCurve plot;
    plot.SetNames("Polystyrene in cyclohexane", "c~G", "Temperature", "T, K~N");
    plot.SetOutputData(&chi);
    CImageDC dc(800, 575);
    plot.Paint(&dc, dc.GetClientRect(), nullptr);
    dc.SavePng(argv[1]);
    return 0;
}
