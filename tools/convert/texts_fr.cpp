// SPDX-License-Identifier: MIT
// French words of vndesk-convert, in the order of Message.
#include "convert/texts_tables.h"

namespace vndesk::convert {

const wchar_t* const kFrench[kMessages] = {
    L"Il manque {0}.",
    // what prevents it
    L"La base ne peut pas être ouverte. {0}", L"La table {0} ne peut pas être lue. {1}",
    L"La table {0} n'a pas de colonne {1}.",
    L"La colonne {1} de la table {0} ne contient pas de texte.",
    L"La colonne {1} de la table {0} ne peut pas contenir d'Unicode. La changer d'abord en "
    L"nvarchar, nchar ou ntext.",
    L"La base n'indique pas de clé primaire de la table {0}. Nommer les colonnes qui distinguent "
    L"ses lignes : --key A,B",
    L"La table {0} est du type {1}, qui n'annule rien. La changer d'abord en un type à "
    L"transactions, tel InnoDB.",
    L"Les lignes de la table {0} ne peuvent pas être lues. {1}",
    L"Le rapport {0} ne peut pas être écrit. {1}",
    // rows
    L"La ligne {0} ne peut pas être écrite. {1}",
    L"La ligne {0} n'est plus ce qu'elle était à la lecture. Quelqu'un d'autre emploie la base.",
    L"{0} ne distingue pas les lignes de la table : il y en a plus d'une.",
    L"La base n'a pas gardé les lettres de la ligne {0} dans la colonne {1}.",
    L"Rien n'a été changé.",
    L"La connexion s'est rompue avant la réponse finale : tout est converti, ou rien. Exécuter le "
    L"programme encore une fois.",
    L"La fin a été refusée. {0}",
    // numbers
    L"{0} lignes lues", L"{0} lignes écrites sur {1}",
    L"{0} : {1} à convertir, {2} déjà en Unicode, {3} pareilles dans les deux, {4} douteuses",
    L"Douteuses, et laissées telles quelles : {0}.", L"La liste est dans {0}.",
    L"--report FICHIER en donne la liste.", L"{0} lignes converties.",
    L"Essai : {0} lignes seraient converties. Rien n'a été changé.", L"Il n'y a rien à convertir.",
    // files
    L"Le fichier {0} ne peut pas être lu. {1}", L"Le fichier {0} ne peut pas être écrit. {1}",
    L"Le fichier {0} est déjà en Unicode.", L"Le fichier {0} n'est pas reconnu ({1}).",
    L"{0} a été converti en {1}.", L"Essai : {0} serait converti en {1}. Rien n'a été écrit.",
    // usage
    L"vndesk-convert --connect CHAÎNE --table TABLE --columns A,B --from tcvn3|vni|cp1258\n"
    L"               [--key A,B] [--dry-run] [--report FICHIER] [--en | --fr | --vi]\n"
    L"vndesk-convert --in FICHIER --out FICHIER --from tcvn3|vni|cp1258 [--bom] [--dry-run]\n"
    L"Convertit en Unicode des colonnes d'une ancienne base, ou un fichier texte.\n"
    L"\n"
    L"  --connect CHAÎNE    la chaîne de connexion, entre guillemets ; - la lit sur l'entrée\n"
    L"                      standard. Noms et mots de passe ne sont jamais écrits.\n"
    L"  --table TABLE       la table\n"
    L"  --columns A,B       ses colonnes à convertir ; --column NOM en prend une avec une virgule\n"
    L"  --from CODE         leur codage : tcvn3 (polices .Vn), vni (polices VNI), cp1258\n"
    L"  --key A,B           les colonnes qui distinguent ses lignes, au lieu de la clé primaire\n"
    L"  --dry-run           ne change rien et dit ce qui serait fait\n"
    L"  --report FICHIER    liste les valeurs douteuses, et lors d'un essai celles à convertir : "
    L"CSV en UTF-8\n"
    L"  --in, --out FICHIER un fichier texte, et celui en UTF-8 à en faire\n"
    L"  --bom               avec la marque d'UTF-8 au début\n"
    L"  --en, --fr, --vi    la langue ; sans aucun des trois celle de l'utilisateur\n"
    L"  --help              écrit ce texte\n"
    L"  --version           écrit la version\n"
    L"\n"
    L"Seul ce qui est sûrement dans ce codage est converti, tout ou rien.\n"
    L"Code de sortie : 0 fait, 1 fait et des valeurs sont douteuses, 2 rien n'est changé à cause "
    L"d'une erreur,\n"
    L"3 mauvaise option, 4 on ne sait pas si c'est fait : exécuter encore une fois.\n"};

} // namespace vndesk::convert
