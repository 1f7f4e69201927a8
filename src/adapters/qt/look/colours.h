#pragma once

#include <QColor>

/// The colours of all windows, whatever the desktop environment prefers. Text stands out from what it lies on by 4.5:1
/// at least, what marks a control off or says that it has the focus by 3:1, text that cannot be used by 3:1.
namespace opd::qt::colours {

inline const QColor window{0xf4, 0xf6, 0xf8};
inline const QColor paper{0xff, 0xff, 0xff};      ///< takes input
inline const QColor paperInUse{0xff, 0xfd, 0xf0}; ///< of the field that has the focus
inline const QColor paperRefused{0xff, 0xf1, 0xf0};
inline const QColor paperShowing{0xe9, 0xee, 0xf2}; ///< shows what another control decides
inline const QColor otherRow{0xf2, 0xf6, 0xf9};
inline const QColor button{0xf7, 0xf9, 0xfa};
inline const QColor buttonUnusable{0xee, 0xf1, 0xf3};
inline const QColor heading{0xe1, 0xe8, 0xed};
inline const QColor text{0x1d, 0x2a, 0x35};
inline const QColor quietText{0x4f, 0x5d, 0x68}; ///< hints; the edges of marks
inline const QColor unusableText{0x6b, 0x78, 0x83};
inline const QColor title{0x1f, 0x5a, 0x7a};
inline const QColor accent{0x1b, 0x75, 0xa8};     ///< has the focus, is chosen
inline const QColor remembered{0xb9, 0xd3, 0xe3}; ///< is chosen in a list that has not the focus
inline const QColor border{0x7b, 0x8a, 0x96};
inline const QColor line{0xc3, 0xcc, 0xd4}; ///< parts a window, marks nothing off that could be used
inline const QColor alert{0xb3, 0x26, 0x1e};
inline const QColor needed{0x8a, 0x53, 0x00};    ///< is missing before the work can be done
inline const QColor shownText{0x33, 0x43, 0x4f}; ///< on paperShowing

inline const QColor buttonUnderMouse{0xe6, 0xef, 0xf5};
inline const QColor buttonPressed{0xd3, 0xe2, 0xec};
inline const QColor primary{0x1b, 0x6a, 0x98}; ///< the button that a window is for
inline const QColor primaryUnderMouse{0x20, 0x79, 0xad};
inline const QColor primaryEdge{0x14, 0x52, 0x6f};
inline const QColor primaryInUse{0xf0, 0xb4, 0x29};
inline const QColor hospitalPrint{0x38, 0xa4, 0xfc};
inline const QColor hospitalPrintUnderMouse{0x9e, 0xaa, 0x79};
inline const QColor hospitalPrintInUse{0x0b, 0x2f, 0x42};

inline const QColor gleamOfLens{0xff, 0xf4, 0xcc}; ///< of the magnifying glass in a search dialog
inline const QColor edgeOfLens{0xb8, 0xc8, 0xd3};

} // namespace opd::qt::colours
