#pragma once
// The tool's twelve feedback colours. Several components lie above 1.0 and every alpha is 2.20022:
// they go to MUIDrawManager::setColor exactly as they stand, which is how the feedback has always
// looked.

#include <maya/MColor.h>

inline const MColor colorYellow(1.69417f, 1.69417f, 0.26403f, 2.20022f);
inline const MColor colorBlue(0.46205f, 0.55006f, 1.98020f, 2.20022f);
inline const MColor colorRed(1.69417f, 0.44004f, 0.44004f, 2.20022f);
inline const MColor colorMagenta(2.20022f, 0.22002f, 1.98020f, 2.20022f);
inline const MColor colorLightGrey(1.54015f, 1.54015f, 1.62816f, 2.20022f);
inline const MColor colorGrey(1.10011f, 1.10011f, 1.18812f, 2.20022f);
inline const MColor colorDarkGrey(0.44004f, 0.44004f, 0.52805f, 2.20022f);
inline const MColor colorOrange(2.20022f, 0.66007f, 0.44004f, 2.20022f);
inline const MColor colorOlive(0.88009f, 0.88009f, 0.22002f, 2.20022f);
inline const MColor colorBlack(0.11001f, 0.11001f, 0.11001f, 2.20022f);
inline const MColor colorDeepRed(1.54675f, 0.11001f, 0.13751f, 2.20022f);
inline const MColor colorGreen(1.34213f, 2.20022f, 0.22002f, 2.20022f);
