<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ConfigureToolsDialog</name>
    <message>
        <source>Configure Tools</source>
        <translation>Configurer les outils</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Éditeur graphique</translation>
    </message>
    <message>
        <source>Graphics Editor Command:</source>
        <translation>Commande de l’éditeur graphique :</translation>
    </message>
    <message>
        <source>Graphics Editor Input &lt;BMP&gt;:</source>
        <translation>Entrée de l’éditeur graphique &lt;BMP&gt; :</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Reconnaissance de texte</translation>
    </message>
    <message>
        <source>OCR Command:</source>
        <translation>Commande de la reconnaissance de texte :</translation>
    </message>
    <message>
        <source>OCR Input &lt;PBM&gt;:</source>
        <translation>Entrée de la reconnaissance de texte &lt;PBM&gt; :</translation>
    </message>
    <message>
        <source>OCR Output / Text Editor Input &lt;TXT&gt;):</source>
        <translation>Sortie de la reconnaissance / entrée de l’éditeur de texte &lt;TXT&gt; :</translation>
    </message>
    <message>
        <source>Text Editor Command:</source>
        <translation>Commande de l’éditeur de texte :</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>FtpForm</name>
    <message>
        <source>Upload Image by FTP</source>
        <translation>Envoyer l’image par FTP</translation>
    </message>
    <message>
        <source>Remote Host:</source>
        <translation>Hôte distant :</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port :</translation>
    </message>
    <message>
        <source>Remote Path:</source>
        <translation>Chemin distant :</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nom d’utilisateur :</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe :</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>&amp;Envoyer</translation>
    </message>
    <message>
        <source>Delete after Upload</source>
        <translation>Supprimer après l’envoi</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Aucune opération en cours</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>ERREUR</translation>
    </message>
    <message>
        <source>Read: %1</source>
        <translation>Lecture : %1</translation>
    </message>
    <message>
        <source>Write: %1</source>
        <translation>Écriture : %1</translation>
    </message>
</context>
<context>
    <name>Global String Table</name>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Nouveau...</translation>
    </message>
    <message>
        <source>Creates new empty image</source>
        <translation>Crée une nouvelle image vide</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Ouvrir...</translation>
    </message>
    <message>
        <source>Opens an existing image file</source>
        <translation>Ouvre un fichier image existant</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Saves current image to disk file</source>
        <translation>Enregistre l&apos;image actuelle dans un fichier</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Enregistrer &amp;sous...</translation>
    </message>
    <message>
        <source>Saves current image with another file name</source>
        <translation>Enregistre l&apos;image actuelle sous un autre nom</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Tout enregistrer</translation>
    </message>
    <message>
        <source>Save A&amp;ll...</source>
        <translation>&amp;Tout enregistrer...</translation>
    </message>
    <message>
        <source>Saves all unsaved images</source>
        <translation>Enregistre toutes les images non enregistrées</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Imprimer</translation>
    </message>
    <message>
        <source>Prints current image</source>
        <translation>Imprime l&apos;image actuelle</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Closes current image</source>
        <translation>Ferme l&apos;image actuelle</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Tout fer&amp;mer</translation>
    </message>
    <message>
        <source>Closes all images</source>
        <translation>Ferme toutes les images</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Exits the program</source>
        <translation>Quitte le programme</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Libellés</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Libellés</translation>
    </message>
    <message>
        <source>Shows or hides text labels on toolbar buttons</source>
        <translation>Affiche ou masque les libellés des boutons de la barre d&apos;outils</translation>
    </message>
    <message>
        <source>Big Pixmaps</source>
        <translation>Grandes icônes</translation>
    </message>
    <message>
        <source>&amp;Big Pixmaps</source>
        <translation>&amp;Grandes icônes</translation>
    </message>
    <message>
        <source>Sets the size of pixmaps on toolbar buttons</source>
        <translation>Définit la taille des icônes de la barre d&apos;outils</translation>
    </message>
    <message>
        <source>Tooltips</source>
        <translation>Infobulles</translation>
    </message>
    <message>
        <source>&amp;Tooltips</source>
        <translation>&amp;Infobulles</translation>
    </message>
    <message>
        <source>Shows or hides tooltips on toolbar buttons</source>
        <translation>Affiche ou masque les infobulles des boutons de la barre d&apos;outils</translation>
    </message>
    <message>
        <source>Movable Toolbars</source>
        <translation>Barres d&apos;outils mobiles</translation>
    </message>
    <message>
        <source>&amp;Movable Toolbars</source>
        <translation>Barres d&apos;outils &amp;mobiles</translation>
    </message>
    <message>
        <source>Enables or disables toolbars movement</source>
        <translation>Autorise ou interdit le déplacement des barres d&apos;outils</translation>
    </message>
    <message>
        <source>Save Layout</source>
        <translation>Enregistrer la disposition</translation>
    </message>
    <message>
        <source>&amp;Save Layout</source>
        <translation>&amp;Enregistrer la disposition</translation>
    </message>
    <message>
        <source>Saves current window layout</source>
        <translation>Enregistre la disposition actuelle de la fenêtre</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Réinitialiser la disposition</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>&amp;Réinitialiser la disposition</translation>
    </message>
    <message>
        <source>Set default window layout</source>
        <translation>Rétablit la disposition par défaut de la fenêtre</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Undoes last edit operation</source>
        <translation>Annule la dernière modification</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Redoes last undone operation</source>
        <translation>Rétablit la dernière modification annulée</translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>&amp;Déplacer</translation>
    </message>
    <message>
        <source>Activates image free-hand scrolling</source>
        <translation>Active le déplacement de l&apos;image à main levée</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Zoom a&amp;rrière</translation>
    </message>
    <message>
        <source>Zooms current image out</source>
        <translation>Réduit l&apos;affichage de l&apos;image actuelle</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Zoom a&amp;vant</translation>
    </message>
    <message>
        <source>Zooms current image in</source>
        <translation>Agrandit l&apos;affichage de l&apos;image actuelle</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Mettre à l&apos;échelle</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>Mettre à l&apos;éc&amp;helle</translation>
    </message>
    <message>
        <source>Displays Scale dialog to set image scale value</source>
        <translation>Ouvre la boîte de dialogue de mise à l&apos;échelle de l&apos;image</translation>
    </message>
    <message>
        <source>Horizontally</source>
        <translation>Horizontalement</translation>
    </message>
    <message>
        <source>&amp;Horizontally...</source>
        <translation>&amp;Horizontalement...</translation>
    </message>
    <message>
        <source>Vertically</source>
        <translation>Verticalement</translation>
    </message>
    <message>
        <source>&amp;Vertically...</source>
        <translation>&amp;Verticalement...</translation>
    </message>
    <message>
        <source>Proportionally</source>
        <translation>Proportionnellement</translation>
    </message>
    <message>
        <source>&amp;Proportionally...</source>
        <translation>&amp;Proportionnellement...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Redimensionner</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>&amp;Redimensionner...</translation>
    </message>
    <message>
        <source>Displays Resize dialog to set image size in pixels</source>
        <translation>Ouvre la boîte de dialogue de redimensionnement de l&apos;image en pixels</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Faire pivoter</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>Faire pi&amp;voter</translation>
    </message>
    <message>
        <source>Rotates the image</source>
        <translation>Fait pivoter l&apos;image</translation>
    </message>
    <message>
        <source>90 degrees CCW</source>
        <translation>90 degrés à gauche</translation>
    </message>
    <message>
        <source>9&amp;0 degrees CCW</source>
        <translation>90 degrés à &amp;gauche</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees counter-clock-wise</source>
        <translation>Fait pivoter l&apos;image de 90 degrés dans le sens antihoraire</translation>
    </message>
    <message>
        <source>90 degrees CW</source>
        <translation>90 degrés à droite</translation>
    </message>
    <message>
        <source>&amp;90 degrees CW</source>
        <translation>90 degrés à &amp;droite</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees clock-wise</source>
        <translation>Fait pivoter l&apos;image de 90 degrés dans le sens horaire</translation>
    </message>
    <message>
        <source>180 degrees</source>
        <translation>180 degrés</translation>
    </message>
    <message>
        <source>&amp;180 degrees</source>
        <translation>&amp;180 degrés</translation>
    </message>
    <message>
        <source>Rotates the image to 180 degrees</source>
        <translation>Fait pivoter l&apos;image de 180 degrés</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Retourner</translation>
    </message>
    <message>
        <source>&amp;Flip</source>
        <translation>&amp;Retourner</translation>
    </message>
    <message>
        <source>Flips the image</source>
        <translation>Retourne l&apos;image</translation>
    </message>
    <message>
        <source>&amp;Horizontally</source>
        <translation>&amp;Horizontalement</translation>
    </message>
    <message>
        <source>Flips the image horizontally (&quot;mirror on the wall&quot;)</source>
        <translation>Retourne l&apos;image horizontalement («&#xa0;miroir au mur&#xa0;»)</translation>
    </message>
    <message>
        <source>&amp;Vertically</source>
        <translation>&amp;Verticalement</translation>
    </message>
    <message>
        <source>Flips the image vertically (&quot;mirror on the floor&quot;)</source>
        <translation>Retourne l&apos;image verticalement («&#xa0;miroir au sol&#xa0;»)</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Inverser</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>&amp;Inverser</translation>
    </message>
    <message>
        <source>Inverts image colors</source>
        <translation>Inverse les couleurs de l&apos;image</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>&amp;Brightness...</source>
        <translation>&amp;Luminosité...</translation>
    </message>
    <message>
        <source>Sets image brightness</source>
        <translation>Règle la luminosité de l&apos;image</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Contraste</translation>
    </message>
    <message>
        <source>&amp;Contrast...</source>
        <translation>&amp;Contraste...</translation>
    </message>
    <message>
        <source>Sets image contrast</source>
        <translation>Règle le contraste de l&apos;image</translation>
    </message>
    <message>
        <source>Color Bit Depth</source>
        <translation>Profondeur de couleur</translation>
    </message>
    <message>
        <source>&amp;Color Bit Depth</source>
        <translation>Profon&amp;deur de couleur</translation>
    </message>
    <message>
        <source>Sets image color depth</source>
        <translation>Règle la profondeur de couleur de l&apos;image</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1 bit</translation>
    </message>
    <message>
        <source>&amp;1 bit</source>
        <translation>&amp;1 bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 1 bit</source>
        <translation>Règle la profondeur de couleur de l&apos;image sur 1 bit</translation>
    </message>
    <message>
        <source>8 bit</source>
        <translation>8 bits</translation>
    </message>
    <message>
        <source>&amp;8 bit</source>
        <translation>&amp;8 bits</translation>
    </message>
    <message>
        <source>Sets image color depth to 8 bit</source>
        <translation>Règle la profondeur de couleur de l&apos;image sur 8 bits</translation>
    </message>
    <message>
        <source>32 bit</source>
        <translation>32 bits</translation>
    </message>
    <message>
        <source>&amp;32 bit</source>
        <translation>&amp;32 bits</translation>
    </message>
    <message>
        <source>Sets image color depth to 32 bit</source>
        <translation>Règle la profondeur de couleur de l&apos;image sur 32 bits</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>C&amp;rop</source>
        <translation>Rec&amp;adrer</translation>
    </message>
    <message>
        <source>Creates a new image from the selection</source>
        <translation>Crée une nouvelle image à partir de la sélection</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>&amp;Propriétés...</translation>
    </message>
    <message>
        <source>Displays Properties dialog to set image properties</source>
        <translation>Affiche les propriétés de l&apos;image</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Éditeur graphique</translation>
    </message>
    <message>
        <source>&amp;Graphics Editor</source>
        <translation>Éditeur &amp;graphique</translation>
    </message>
    <message>
        <source>Starts external graphics editor with the image</source>
        <translation>Ouvre l&apos;image dans un éditeur graphique externe</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Reconnaissance de texte</translation>
    </message>
    <message>
        <source>&amp;OCR</source>
        <translation>&amp;Reconnaissance de texte</translation>
    </message>
    <message>
        <source>Starts external Optical Character Recognition (OCR) program</source>
        <translation>Démarre un programme externe de reconnaissance optique de caractères (OCR)</translation>
    </message>
    <message>
        <source>Send by E-mail</source>
        <translation>Envoyer par e-mail</translation>
    </message>
    <message>
        <source>&amp;Send by E-mail...</source>
        <translation>&amp;Envoyer par e-mail...</translation>
    </message>
    <message>
        <source>Sends the image by E-mail</source>
        <translation>Envoie l&apos;image par e-mail</translation>
    </message>
    <message>
        <source>Upload by FTP</source>
        <translation>Envoyer par FTP</translation>
    </message>
    <message>
        <source>&amp;Upload by FTP...</source>
        <translation>Envoyer par &amp;FTP...</translation>
    </message>
    <message>
        <source>Uploads the image to remote FTP server</source>
        <translation>Transfère l&apos;image vers un serveur FTP distant</translation>
    </message>
    <message>
        <source>Configure Tools</source>
        <translation>Configurer les outils</translation>
    </message>
    <message>
        <source>&amp;Configure Tools...</source>
        <translation>&amp;Configurer les outils...</translation>
    </message>
    <message>
        <source>Displays tools configuration dialog</source>
        <translation>Ouvre la boîte de dialogue de configuration des outils</translation>
    </message>
</context>
<context>
    <name>ImageManager</name>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>This operation cannot be undone or redone. Continue?</source>
        <translation>Cette opération ne pourra être ni annulée ni rétablie. Continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Error saving Undo/Redo information</source>
        <translation>Erreur lors de l&apos;enregistrement des informations d&apos;annulation et de rétablissement</translation>
    </message>
    <message>
        <source>Saving Undo/Redo information...</source>
        <translation>Enregistrement des informations d&apos;annulation et de rétablissement...</translation>
    </message>
    <message>
        <source>Changing the image...</source>
        <translation>Modification de l&apos;image...</translation>
    </message>
    <message>
        <source>Rollback operation...</source>
        <translation>Retour à l&apos;état précédent...</translation>
    </message>
    <message>
        <source>Undoing operation...</source>
        <translation>Annulation de l&apos;opération...</translation>
    </message>
    <message>
        <source>Redoing operation...</source>
        <translation>Rétablissement de l&apos;opération...</translation>
    </message>
    <message>
        <source>Open failed</source>
        <translation>Échec de l&apos;ouverture</translation>
    </message>
    <message>
        <source>Error opening file</source>
        <translation>Erreur lors de l&apos;ouverture du fichier</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>Échec de l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Error saving image: %1</source>
        <translation>Erreur lors de l&apos;enregistrement de l&apos;image&#xa0;: %1</translation>
    </message>
    <message>
        <source>Image &apos;%1&apos; has been changed.
Do you want to save it?</source>
        <translation>L&apos;image «&#xa0;%1&#xa0;» a été modifiée.
Voulez-vous l&apos;enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <translation>Voulez-vous enregistrer l&apos;image&#xa0;?</translation>
    </message>
    <message>
        <source>Image Depth 1 bit</source>
        <translation>Profondeur de couleur 1 bit</translation>
    </message>
    <message>
        <source>Image Depth 8 bit</source>
        <translation>Profondeur de couleur 8 bits</translation>
    </message>
    <message>
        <source>Image Depth 32 bit</source>
        <translation>Profondeur de couleur 32 bits</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Inverser</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>Set Brightness</source>
        <translation>Régler la luminosité</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Contraste</translation>
    </message>
    <message>
        <source>Set Contrast</source>
        <translation>Régler le contraste</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CCW</source>
        <translation>Faire pivoter de 90 degrés à gauche</translation>
    </message>
    <message>
        <source>Rotate 180 degrees</source>
        <translation>Faire pivoter de 180 degrés</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CW</source>
        <translation>Faire pivoter de 90 degrés à droite</translation>
    </message>
    <message>
        <source>Flip Vertically</source>
        <translation>Retourner verticalement</translation>
    </message>
    <message>
        <source>Flip Horizontally</source>
        <translation>Retourner horizontalement</translation>
    </message>
    <message>
        <source>Scale Proportionally</source>
        <translation>Mise à l&apos;échelle proportionnelle</translation>
    </message>
    <message>
        <source>Proportional Scale</source>
        <translation>Échelle proportionnelle</translation>
    </message>
    <message>
        <source>Number to multiple actual image height and width on</source>
        <translation>Facteur par lequel multiplier la hauteur et la largeur actuelles de l&apos;image</translation>
    </message>
    <message>
        <source>Scale Vertically</source>
        <translation>Mise à l&apos;échelle verticale</translation>
    </message>
    <message>
        <source>Vertical Scale</source>
        <translation>Échelle verticale</translation>
    </message>
    <message>
        <source>Number to multiple actual image height on</source>
        <translation>Facteur par lequel multiplier la hauteur actuelle de l&apos;image</translation>
    </message>
    <message>
        <source>Scale Horizontally</source>
        <translation>Mise à l&apos;échelle horizontale</translation>
    </message>
    <message>
        <source>Horizontal Scale</source>
        <translation>Échelle horizontale</translation>
    </message>
    <message>
        <source>Number to multiple actual image width on</source>
        <translation>Facteur par lequel multiplier la largeur actuelle de l&apos;image</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>Échec du chargement</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Erreur lors du chargement du fichier</translation>
    </message>
    <message>
        <source>Could not load image
Not enough memory to load bitmap image
Do you want to save it?</source>
        <translation>Impossible de charger l&apos;image
Mémoire insuffisante pour charger l&apos;image
Voulez-vous l&apos;enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>Image Manager</source>
        <translation>Image Manager</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documents</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effets</translation>
    </message>
    <message>
        <source>Changes the image zoom</source>
        <translation>Modifie le zoom de l&apos;image</translation>
    </message>
    <message>
        <source>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Changes the image zoom.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Modifie le zoom de l&apos;image.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>&amp;Image</translation>
    </message>
    <message>
        <source>Image Manager Toolbar</source>
        <translation>Barre d&apos;outils d&apos;Image Manager</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>Autres commandes</translation>
    </message>
    <message>
        <source>Page 1 of %1</source>
        <translation>Page 1 sur %1</translation>
    </message>
    <message>
        <source>%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?</source>
        <translation>%1 contient %2 images, qui ne sont pas toutes ouvertes. Ce qui n&apos;est pas ouvert ne peut pas être conservé. Enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Impression...</translation>
    </message>
</context>
<context>
    <name>MailForm</name>
    <message>
        <source>Send Image By E-mail</source>
        <translation>Envoyer l’image par courriel</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Serveur :</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Serveur</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>Identifiant :</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port :</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe :</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>De :</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>À :</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Objet :</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Objet</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>Delete After Send</source>
        <translation>Supprimer après l’envoi</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Aucune opération en cours</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Image must be saved before sending</source>
        <translation>L’image doit être enregistrée avant l’envoi</translation>
    </message>
    <message>
        <source>Looking up mail servers</source>
        <translation>Recherche des serveurs de messagerie</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existe déjà.
Voulez-vous le remplacer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>Smtp</name>
    <message>
        <source>The attached file cannot be read.</source>
        <translation>Le fichier joint ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The domain %1 takes no mail.</source>
        <translation>Le domaine %1 n’accepte pas de courrier.</translation>
    </message>
    <message>
        <source>Connecting to:</source>
        <translation>Connexion à :</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Connecté à %1</translation>
    </message>
    <message>
        <source>The mail server offers no login that this program knows.</source>
        <translation>Le serveur de messagerie ne propose aucune authentification connue de ce programme.</translation>
    </message>
    <message>
        <source>Authentication...</source>
        <translation>Authentification...</translation>
    </message>
    <message>
        <source>Sending mail...</source>
        <translation>Envoi du courriel...</translation>
    </message>
    <message>
        <source>Message sent</source>
        <translation>Message envoyé</translation>
    </message>
    <message>
        <source>Unexpected reply from SMTP server:

</source>
        <translation>Réponse inattendue du serveur SMTP :

</translation>
    </message>
    <message>
        <source>Mail system error</source>
        <translation>Erreur du système de messagerie</translation>
    </message>
    <message>
        <source>The connection to the mail server is lost.</source>
        <translation>La connexion au serveur de messagerie est perdue.</translation>
    </message>
    <message>
        <source>No connection to %1.</source>
        <translation>Aucune connexion à %1.</translation>
    </message>
    <message>
        <source>Message not sent</source>
        <translation>Message non envoyé</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>Le serveur de messagerie ne répond pas.</translation>
    </message>
    <message>
        <source>A login is sent to no server but the one that is filled in.
Fill in &quot;Server&quot;, or empty &quot;Login&quot;.</source>
        <translation>L’identifiant n’est envoyé qu’au serveur indiqué.
Remplissez « Serveur » ou videz « Identifiant ».</translation>
    </message>
    <message>
        <source>This address cannot be used:
%1</source>
        <translation>Cette adresse ne peut pas être utilisée :
%1</translation>
    </message>
    <message>
        <source>The mail servers of %1 cannot be looked up at present.</source>
        <translation>Les serveurs de messagerie de %1 ne peuvent pas être trouvés pour le moment.</translation>
    </message>
</context>
</TS>
