// The fixed message catalogue: texts that other parts show by number.
#include "model/messages.h"

namespace vorna {

// Windows-1252 text, like every other text of the program: "\xE0" is the accented a.
void FillMessageCatalogue(MessageCatalogue &c) {
    c.texts.fill("");
    c.texts[1] = " Troppe schede di spessore ";
    c.texts[2] = " Troppe schede di sezione ";
    c.texts[3] = " Impossibile leggere il file ";
    c.texts[5] = " Problemi nel salvataggio delle opzioni ";
    c.texts[6] = " Opzioni salvate ";
    c.texts[7] = " Non \xE8 possibile scrivere il file di uscita ";
    c.texts[18] =
        " Se la dimensione della trappola \xE8 nulla la selezione diretta non \xE8 possibile ";
    c.texts[19] = " La stringa di selezione comprende troppi elementi ";
    c.texts[24] = " Questa operazione canceller\xE0 tutti i nodi analoghi selezionati ";
    c.texts[25] = " Numero eccessivo di potenziali aste base ";
    c.texts[26] = " Numero eccessivo di tipi asta ";
}

} // namespace vorna
