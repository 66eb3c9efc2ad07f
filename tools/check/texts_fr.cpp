// SPDX-License-Identifier: MIT
// French words of vndesk-check, in the order of Id.
#include "check/texts_tables.h"

namespace vndesk::check {

const Words kFrench[kIdCount] = {
    // system
    {L"Ce contrôle est un programme {0} bits sous {1} ({2} bits). Il dit ce que trouvent les "
     L"programmes {0} bits.",
     L"", L""},
    {L"Exécution sous Wine {0}.",
     L"Les bases sont atteintes par les pilotes ODBC de la machine qui porte Wine.",
     L"Rien, si c'est voulu."},
    {L"La page de codes ANSI est {0}.", L"", L""},
    {L"La page de codes ANSI est UTF-8.",
     L"Les mots de passe avec des lettres accentuées donnent un autre numéro que celui de la base.",
     L"Désactiver « Utiliser le format Unicode UTF-8 » dans Région, Administration."},
    // library
    {L"VnDesk est inscrit : {0} ({1} bits, version {2}), dans {3}.", L"", L""},
    {L"VnDesk n'est pas inscrit pour les programmes {0} bits.",
     L"Aucun programme de cette architecture ne peut créer ses classes.",
     L"En administrateur : regsvr32 \"...\\vndesk.dll\", avec la DLL {0} bits."},
    {L"VnDesk n'est inscrit que pour les programmes {0} bits : {1}.",
     L"Les programmes de l'autre architecture ne peuvent pas créer ses classes.",
     L"Inscrire aussi l'autre DLL ; les deux peuvent l'être ensemble."},
    {L"Le fichier inscrit n'est pas là : {0}", L"Il a été déplacé ou supprimé après l'inscription.",
     L"Remettre le fichier, ou inscrire vndesk.dll à sa nouvelle place."},
    {L"Le fichier inscrit est pour les programmes {1} bits : {0}",
     L"Un programme {2} bits ne peut pas le charger.",
     L"Inscrire la vndesk.dll {2} bits avec le regsvr32 de la même architecture."},
    {L"Le fichier inscrit n'est pas une bibliothèque : {0}", L"Il est abîmé, vide ou illisible.",
     L"Recopier vndesk.dll à cet endroit, ou réparer les droits du fichier."},
    {L"La bibliothèque inscrite a la version {0}, ce contrôle la version {1}.",
     L"Ils viennent de deux paquets différents.",
     L"Installer un paquet en entier, puis inscrire de nouveau."},
    {L"Les classes sont inscrites depuis plusieurs fichiers : {0}",
     L"Un programme peut recevoir à la fois des classes de versions différentes.",
     L"Désinscrire les copies inutiles (regsvr32 /u), puis inscrire la bonne."},
    {L"L'inscription de cet utilisateur cache celle de la machine : {0} au lieu de {1}.",
     L"Les autres utilisateurs, et les programmes lancés en administrateur, reçoivent l'autre "
     L"fichier.",
     L"Si ce n'est pas voulu : regsvr32 /u /n /i:user vndesk.dll"},
    {L"L'inscription de cet utilisateur est sans effet : {0}",
     L"Wine, et Windows pour les programmes lancés en administrateur, ne lisent que celle de la "
     L"machine.",
     L"Inscrire pour la machine : regsvr32 vndesk.dll, en administrateur."},
    {L"La classe {0} n'est pas inscrite.",
     L"L'inscription est plus ancienne que la bibliothèque, ou abîmée.",
     L"Inscrire de nouveau vndesk.dll."},
    {L"Le nom {0} ne mène pas à sa classe : {1}",
     L"Les programmes qui créent la classe par son nom ont une erreur ou une autre classe.",
     L"Inscrire de nouveau vndesk.dll."},
    {L"La classe {0} a le modèle de thread \"{1}\" au lieu de \"Apartment\".",
     L"Ses objets seraient employés depuis le mauvais thread.", L"Inscrire de nouveau vndesk.dll."},
    {L"La classe {0} ne peut pas être créée : {1}", L"Les programmes ont la même erreur.",
     L"Suivre le message ; souvent le fichier est illisible, ou un programme de sécurité le "
     L"bloque."},
    {L"Les {0} classes peuvent être créées.", L"", L""},
    // type library
    {L"La bibliothèque de types est inscrite : {0}", L"", L""},
    {L"La bibliothèque de types n'est pas inscrite pour les programmes {0} bits.",
     L"Visual Basic et les programmes qui se réfèrent à \"VnDesk\" ne démarrent ou ne se compilent "
     L"pas ; les appels entre threads échouent.",
     L"Inscrire de nouveau vndesk.dll."},
    {L"Le fichier de la bibliothèque de types n'est pas là : {0}",
     L"Il a été déplacé ou supprimé après l'inscription.",
     L"Remettre le fichier, ou inscrire vndesk.dll à sa nouvelle place."},
    {L"La bibliothèque de types ne se charge pas : {0} : {1}",
     L"Le fichier est abîmé, ou un autre.",
     L"Recopier vndesk.dll à cet endroit, puis l'inscrire de nouveau."},
    {L"La bibliothèque de types est inscrite depuis un autre fichier que les classes : {0}",
     L"Des programmes peuvent être compilés avec une autre version que celle qu'ils reçoivent.",
     L"Inscrire de nouveau la vndesk.dll voulue."},
    // ADO
    {L"ADO {0} est présent : {1}", L"", L""},
    {L"ADO est inutilisable : {0} : {1}",
     L"Aucun formulaire de la bibliothèque n'atteint une base de données.",
     L"Sous Windows, réparer le système (sfc /scannow). Sous Wine, inscrire adobridge.dll."},
    {L"adobridge.dll (version {0}) tient lieu d'ADO : {1}", L"", L""},
    {L"ADO est celui de Wine : {0}",
     L"Il ne lit pas les jeux d'enregistrements ; les formulaires s'ouvrent sans données.",
     L"Exécuter : wine regsvr32 /s adobridge.dll, avec la DLL {1} bits."},
    {L"Fournisseurs OLE DB pour les programmes {0} bits : {1}", L"", L""},
    {L"Le fournisseur {0} est inscrit mais inutilisable : {1}",
     L"Les chaînes de connexion qui le nomment échouent.",
     L"Réparer ou réinstaller le paquet dont il fait partie."},
    {L"Il n'y a pas de fournisseur pour les bases Jet (.mdb) pour les programmes {0} bits.",
     L"Les chaînes avec Microsoft.Jet.OLEDB ou Microsoft.ACE.OLEDB échouent. Jet n'existe que pour "
     L"les programmes 32 bits.",
     L"Si nécessaire : un programme 32 bits, ou le moteur Access de cette architecture."},
    {L"Il n'y a pas de fournisseur pour SQL Server pour les programmes {0} bits.",
     L"Les chaînes avec SQLOLEDB ou MSOLEDBSQL échouent.",
     L"Si nécessaire : installer Microsoft OLE DB Driver for SQL Server."},
    {L"Il n'y a aucun fournisseur OLE DB pour les programmes {0} bits.",
     L"Aucun formulaire de la bibliothèque n'atteint une base de données.",
     L"Installer le fournisseur que nomme la chaîne de connexion."},
    {L"Pilotes ODBC pour les programmes {0} bits : {1}", L"", L""},
    {L"Il n'y a pas de pilote ODBC pour les programmes {0} bits.",
     L"Les sources de données (DSN), et sous Wine toutes les bases, ne s'ouvrent pas.",
     L"Installer le pilote de cette architecture ; sous Wine sur la machine autour, par exemple "
     L"libsqliteodbc."},
    // controls
    {L"Les contrôles communs 6 sont en vigueur : {0}", L"", L""},
    {L"Les contrôles communs 6 manquent : {0}",
     L"Les formulaires fonctionnent avec l'aspect classique, sans quelques indications dans les "
     L"champs.",
     L"Sous Windows, réparer le système (sfc /scannow) ; sous Wine, mettre à jour le préfixe "
     L"(wineboot -u)."},
    {L"Les styles visuels sont désactivés.", L"Les formulaires ont l'aspect classique.",
     L"Rien, si c'est voulu."},
    // fonts
    {L"Police \"{0}\" : dessinée avec \"{1}\", qui a toutes les lettres vietnamiennes.", L"", L""},
    {L"La police \"{0}\" n'est pas installée, \"{1}\" est dessinée à sa place.",
     L"Les textes peuvent être plus larges ou plus étroits que prévu.",
     L"Installer la police si les formulaires sont laids."},
    {L"Police \"{0}\" : dessinée avec \"{1}\", à laquelle manquent {2} des {3} lettres "
     L"vietnamiennes : {4}",
     L"Les textes montrent des carrés ou les lettres d'une autre police.",
     L"Installer une police vietnamienne, par exemple Arial ou Liberation Sans 2."},
    // the database
    {L"La base de données s'ouvre : {0}", L"", L""},
    {L"Le serveur de la base est introuvable ou ne répond pas : {0}",
     L"Aucun formulaire n'atteint la base de données.",
     L"Vérifier le nom, l'instance et le port dans la chaîne de connexion, que le serveur "
     L"fonctionne, et les pare-feu."},
    {L"Le serveur refuse le nom ou le mot de passe : {0}",
     L"Aucun formulaire n'atteint la base de données.",
     L"Vérifier les deux dans la chaîne ; un mot de passe avec ; ou des guillemets se met entre "
     L"guillemets ou accolades."},
    {L"Le fournisseur ou pilote que nomme la chaîne manque pour les programmes {1} bits : {0}",
     L"Aucun formulaire d'un programme {1} bits n'atteint la base de données.",
     L"L'installer pour cette architecture ; une source de données (DSN) doit aussi exister pour "
     L"elle."},
    {L"Le certificat du serveur n'est pas approuvé : {0}",
     L"Aucun formulaire n'atteint la base de données.",
     L"Installer le certificat de son autorité sur ce poste, et se connecter par le nom inscrit "
     L"dans le certificat."},
    {L"Le fichier de la base est introuvable : {0}",
     L"Aucun formulaire n'atteint la base de données.",
     L"Vérifier le chemin dans la chaîne, et que cet utilisateur peut lire le dossier."},
    {L"La chaîne nomme Jet 4.0, qui n'existe pas pour les programmes 64 bits : {0}",
     L"Aucun formulaire d'un programme 64 bits n'atteint la base de données.",
     L"Employer l'hôte 32 bits, ou ACE : le moteur Access 64 bits, et son nom dans la chaîne."},
    {L"Le serveur n'a pas cette base, ou ce compte n'a pas le droit de l'ouvrir : {0}",
     L"Aucun formulaire n'atteint la base de données.",
     L"Vérifier le nom de la base dans la chaîne, et les droits du compte."},
    {L"Le serveur est occupé ou pas encore prêt : {0}",
     L"Aucun formulaire n'atteint la base de données pour l'instant.",
     L"Réessayer ; si cela dure, examiner le serveur : trop de connexions, ou reprise en cours."},
    {L"La base de données ne s'ouvre pas : {0}", L"Aucun formulaire ne l'atteint.",
     L"Suivre le message du fournisseur."},
    {L"{0} ne comprend pas les noms entre crochets.",
     L"Les instructions d'un hôte qui ne règle pas Dialect échouent.",
     L"Régler Dialect de clsSettings sur ce moteur."},
    {L"Tables lisibles : {0}", L"", L""},
    {L"La table {0} ne peut pas être lue : {1}",
     L"Sans elle, ni ouverture de session ni administration.",
     L"La créer par les scripts de schema, ou donner le droit de lecture au compte de la chaîne."},
    {L"La table {0} ne peut pas être lue : {1}",
     L"La boîte de recherche n'a aucun critère à proposer.",
     L"Si l'hôte fait des recherches : la créer par les scripts de schema, ou donner le droit de "
     L"lecture."},
    {L"La table {0} ne peut pas être lue : {1}", L"Aucun formulaire ne l'emploie.",
     L"Rien, sauf si l'hôte y garde ses propres réglages."},
    {L"La table {0} n'a pas de colonne {1}.", L"Les instructions qui la nomment échouent.",
     L"Ajouter la colonne telle qu'elle est dans les scripts de schema."},
    {L"La colonne {1} de la table {0} n'est pas à la place {2}.",
     L"La bibliothèque lit ces colonnes par leur place : numéros ou droits erronés.",
     L"Recréer la table avec les colonnes dans l'ordre des scripts de schema."},
    {L"Groups a {0} colonnes de droits, Menu a {1} lignes.",
     L"Les droits des derniers menus ne peuvent être ni lus ni écrits.",
     L"Ajouter à la fin de Groups une colonne d'entiers par ligne de Menu."},
    {L"La table Menu n'a aucune ligne.", L"Le formulaire des droits n'a rien à accorder.",
     L"Si l'hôte gère des droits : écrire une ligne par menu."},
    {L"Le menu {0} a {1} commandes dans SubMenu, 31 sont possibles.",
     L"Le formulaire des droits signale une erreur pour ce menu.",
     L"Le partager en deux lignes de Menu."},
    {L"Aucun utilisateur n'a le code 3.",
     L"C'est l'administrateur principal, que nul ne peut supprimer et qui débloque les autres.",
     L"L'ajouter avec ce code, comme le font les scripts de schema."},
    {L"Aucun groupe n'a le code {0}.",
     L"La bibliothèque protège les groupes 1 et 8 de la suppression, et les hôtes comptent sur "
     L"eux.",
     L"L'ajouter avec ce code, comme le font les scripts de schema."},
    {L"LstFld a des champs de type {0}, Operator n'a aucune ligne pour ce type.",
     L"La boîte de recherche ne peut rien comparer avec ces champs.",
     L"Ajouter à Operator des lignes de ce type."},
    {L"LstFld a des champs de type 8, des dates.",
     L"Result les écrit #03/05/2021#, que SQL Server ne lit pas.",
     L"Employer ParameterizedResult ou CreateCommand de clsSearch, ou régler Dialect."},
    {L"Tables de 1.1 lisibles : {0}", L"", L""},
    {L"La table {0} de 1.1 n'existe pas.",
     L"Les hôtes qui en ont besoin reçoivent l'erreur 0x80040210.",
     L"Si un hôte la demande : exécuter schema/upgrade/{1}.sql sur la base."},
};

const Frame kFrenchFrame = {
    L"Contrôle de VnDesk {0}",
    {L"bien", L"note", L"avertissement", L"erreur"},
    L"À faire : ",
    {L"VnDesk fonctionne.", L"VnDesk fonctionne.", L"VnDesk fonctionne, avec des avertissements.",
     L"VnDesk ne fonctionne pas."},
    L"vndesk-check [--json] [--en | --fr | --vi] [--connect CHAÎNE] [--help] [--version]\n"
    L"Dit si les programmes de l'architecture de ce contrôle peuvent employer VnDesk, et ce qui ne "
    L"va pas.\n"
    L"\n"
    L"  --json            écrit du JSON en UTF-8 pour d'autres programmes\n"
    L"  --en              en anglais\n"
    L"  --fr              en français\n"
    L"  --vi              en vietnamien ; sans aucun des trois dans la langue de l'utilisateur\n"
    L"  --connect CHAÎNE  examine aussi la base de l'hôte ; la chaîne de connexion entre "
    L"guillemets,\n"
    L"                    - la lit sur l'entrée standard. Noms et mots de passe ne sont jamais "
    L"écrits.\n"
    L"  --help            écrit ce texte\n"
    L"  --version         écrit la version\n"
    L"\n"
    L"Code de sortie : 0 fonctionne, 1 avec des avertissements, 2 ne fonctionne pas, 3 le contrôle "
    L"a échoué.\n"};

} // namespace vndesk::check
