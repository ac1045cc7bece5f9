// FormOptInt's controls, one row each in the order of the dump (rows as in form_opt_controls.h).
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Frame1)
VORNA_CONTROL(Label1, .caption = "Dimensione della trappola:")
VORNA_CONTROL(TextTrappola)
VORNA_CONTROL(Command1, .caption = "Chiudi")
// clang-format on

#undef VORNA_CONTROL
