<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>FindBar</name>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Rechercher :</translation>
    </message>
    <message>
        <source>Text to find in the page</source>
        <translation>Texte à rechercher dans la page</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>Suiva&amp;nt</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source>There is no help page &quot;%1&quot;.</source>
        <translation>Il n&apos;y a pas de page d&apos;aide « %1 ».</translation>
    </message>
    <message>
        <source>The help pages are not installed: there is no directory &quot;%1&quot;.</source>
        <translation>Les pages d&apos;aide ne sont pas installées : le répertoire « %1 » n&apos;existe pas.</translation>
    </message>
    <message>
        <source>Page not found</source>
        <translation>Page introuvable</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help page</source>
        <translation>Page d&apos;aide</translation>
    </message>
    <message>
        <source>The link to %1 leads out of the help and is not followed.</source>
        <translation>Le lien vers %1 mène hors de l&apos;aide et n&apos;est pas suivi.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Sommaire</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>Pré&amp;cédente</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>Suivan&amp;te</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>&amp;Accueil</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>Rech&amp;ercher</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>Plus &amp;grand</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>P&amp;lus petit</translation>
    </message>
    <message>
        <source>Prin&amp;t</source>
        <translation>&amp;Imprimer</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - Aide</translation>
    </message>
</context>
</TS>
