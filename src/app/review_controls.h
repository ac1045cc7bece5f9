// FormRevisione's controls, one row each in the order of the dump (rows as in
// form_vorna_controls.h). The rows of its table are no controls: each row's check box is
// "Tenuto(K)" to the dialog's Find.
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Righe) // the table of the records; text: the 1-based row selected
VORNA_CONTROL(EsportaCSV, .caption = "Esporta &CSV...")
VORNA_CONTROL(Chiudi, .caption = "Chiudi")
// clang-format on

#undef VORNA_CONTROL
