// FormPercheNo's controls, one row each in the order of the dump (rows as in
// form_vorna_controls.h).
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Verdetto)  // the verdict, on top
VORNA_CONTROL(Dettagli)  // the rotation found, or the pairing's sum of angles
VORNA_CONTROL(Schede)    // the two tabs by title; text: the one shown, 1 or 2
VORNA_CONTROL(Label1, .caption = "N.\tAsta base\tAsta del nodo\tAngolo\tLunghezze\tSezioni\tColori\tTipi linea")
VORNA_CONTROL(Confronto) // one row per base bar; the failing cell starts with "\xBB "
VORNA_CONTROL(Label2, .caption = "Posto\tNodo\tMotivo\tAsta base\tPunteggio")
VORNA_CONTROL(ListaQuasi)
VORNA_CONTROL(Chiudi, .caption = "Chiudi")
// clang-format on

#undef VORNA_CONTROL
