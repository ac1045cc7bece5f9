// FormTipiNodo's controls, one row each in the order of the dump (rows as in
// form_vorna_controls.h).
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Label1, .caption = "Nodi\tAste\tNodo\tNodi del tipo") // the list's column titles
VORNA_CONTROL(ListaTipi)
VORNA_CONTROL(Label2, .caption = "Schema del nodo")
VORNA_CONTROL(Schema)
VORNA_CONTROL(Usa, .caption = "Usa")
VORNA_CONTROL(ColoraTipi, .caption = "Colora i tipi nel disegno")
VORNA_CONTROL(ColoriTipi) // the swatch of each row while ColoraTipi is checked: "R,G,B" or ""
VORNA_CONTROL(EsportaCSV, .caption = "Esporta &CSV...")
// clang-format on

#undef VORNA_CONTROL
