// FormComandi's controls, one row each in the order of the dump (rows as in
// form_vorna_controls.h).
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Nota, .caption = "I tasti agiscono quando il disegno ha il fuoco: un clic sul disegno glielo d\xE0.")
VORNA_CONTROL(Label1, .caption = "Gesto o tasto\tEffetto") // the list's column titles
VORNA_CONTROL(ListaComandi) // one row per gesture or key
VORNA_CONTROL(Chiudi, .caption = "Chiudi")
// clang-format on

#undef VORNA_CONTROL
