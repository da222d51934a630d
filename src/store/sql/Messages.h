#pragma once

namespace store::sql::messages {

// All that the language tells of a statement that it refuses.

inline constexpr char16_t unexpected[] = u"Syntaktická chyba v príkaze SQL.";
inline constexpr char16_t unknownSign[] = u"Neznámy znak v príkaze SQL.";
inline constexpr char16_t openText[] = u"Text v príkaze SQL nie je ukončený.";
inline constexpr char16_t openName[] = u"Názov v hranatých zátvorkách nie je ukončený.";
inline constexpr char16_t badDate[] = u"Dátum v príkaze SQL nie je platný.";
inline constexpr char16_t tooLong[] = u"Príkaz SQL je príliš dlhý.";
inline constexpr char16_t tooComplex[] = u"Príkaz SQL je príliš zložitý.";
inline constexpr char16_t tooManyColumns[] = u"Výber má príliš veľa stĺpcov.";
inline constexpr char16_t notSelect[] = u"Očakáva sa výberový príkaz, tabuľka alebo uložený výber.";
inline constexpr char16_t notAction[] = u"Očakáva sa príkaz delete, update alebo insert.";
inline constexpr char16_t unknownTable[] = u"Tabuľka alebo uložený výber neexistuje.";
inline constexpr char16_t unknownName[] = u"Príliš málo parametrov: názov nie je známy.";
inline constexpr char16_t unknownFunction[] = u"Funkcia nie je známa.";
inline constexpr char16_t unknownInsertColumn[] = u"Príkaz insert obsahuje neznámy stĺpec.";
inline constexpr char16_t ambiguousName[] = u"Názov je vo viacerých tabuľkách.";
inline constexpr char16_t sameAlias[] = u"Dve tabuľky majú rovnaký názov.";
inline constexpr char16_t argumentCount[] = u"Nesprávny počet argumentov funkcie.";
inline constexpr char16_t typeMismatch[] = u"Nezhoda typov údajov vo výraze.";
inline constexpr char16_t badFormat[] = u"Formát nie je známy.";
inline constexpr char16_t badPattern[] = u"Vzor za like nie je platný.";
inline constexpr char16_t aggregatePlace[] = u"Súhrnná funkcia tu nesmie stáť.";
inline constexpr char16_t notGrouped[] = u"Stĺpec nie je súčasťou zoskupenia.";
inline constexpr char16_t groupedStar[] = u"Zoskupený výber nesmie obsahovať hviezdičku.";
inline constexpr char16_t havingWithoutGroup[] = u"Having smie stáť len v zoskupenom výbere.";
inline constexpr char16_t orderNotSelected[] =
    u"Triediť podľa výrazu mimo výberu distinct sa nedá.";
inline constexpr char16_t orderPlace[] = u"Poradie stĺpca na triedenie je mimo výberu.";
inline constexpr char16_t constantGroup[] = u"Zoskupiť podľa konštanty sa nedá.";
inline constexpr char16_t valueCount[] = u"Počet hodnôt sa nezhoduje s počtom stĺpcov.";
inline constexpr char16_t columnTwice[] = u"Stĺpec je uvedený dvakrát.";
inline constexpr char16_t circularQuery[] = u"Uložený výber číta sám seba.";
inline constexpr char16_t storedTarget[] = u"Uložený výber sa týmto príkazom nedá meniť.";

} // namespace store::sql::messages
