// FormInformazioni's controls, one row each in the order of the dump (rows as in
// form_vorna_controls.h). The licences are one label a paragraph, each a line of the dump.
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif

// clang-format off
VORNA_CONTROL(Programma, .caption = "vorna")
VORNA_CONTROL(Descrizione, .caption = "Definizione dei collegamenti in acciaio di un modello strutturale 3D")
VORNA_CONTROL(Versione)     // "Versione " and `git describe` of the build
VORNA_CONTROL(Compilazione) // "Compilato il " and the day
VORNA_CONTROL(VersioneQt)   // the Qt linked in, or none
VORNA_CONTROL(Label1, .caption = "Licenze")
VORNA_CONTROL(LicenzaQt)
// The notices of the font and of fdlibm as their licences ask for them, word for word.
VORNA_CONTROL(LicenzaFont, .caption =
    "Il font a tratti del disegno \xE8 costruito dai font Hershey (Futura Light), come li "
    "distribuisce Debian nel pacchetto hershey-fonts-data. Come chiede la loro licenza: the "
    "Hershey Fonts were originally created by Dr. A. V. Hershey while working at the U. S. "
    "National Bureau of Standards; the format of the font data was originally created by James "
    "Hurt, Cognition, Inc.")
VORNA_CONTROL(LicenzaFdlibm, .caption =
    "Le funzioni trigonometriche di vorna usano i polinomi e la riduzione dell'argomento di "
    "fdlibm: Copyright (C) 1993 by Sun Microsystems, Inc. All rights reserved. Developed at "
    "SunPro, a Sun Microsystems, Inc. business. Permission to use, copy, modify, and distribute "
    "this software is freely granted, provided that this notice is preserved.")
// Shown where the C++ runtime is linked in (the Windows programs).
VORNA_CONTROL(LicenzaRuntime, .caption =
    "Il runtime di MinGW-w64 e le librerie libstdc++ e libgcc di GCC sono collegati "
    "staticamente, secondo le loro eccezioni per il runtime (GCC Runtime Library Exception, "
    "licenze permissive di MinGW-w64).", .visible = false)
VORNA_CONTROL(Chiudi, .caption = "Chiudi")
// clang-format on

#undef VORNA_CONTROL
