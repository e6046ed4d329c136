<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Version&#xa0;: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Rapport de problème Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Vous avez rencontré un problème avec Tonewright&#xa0;?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright s&apos;est fermé de manière inattendue lors de sa dernière utilisation.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Cliquez sur &amp;quot;Envoyer le rapport&amp;quot; pour nous envoyer le rapport par e-mail. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Votre rapport aidera Vandrel à améliorer ce logiciel. Il ne contiendra aucune information personnelle vous concernant.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Pour obtenir davantage d&apos;assistance sur le produit, rendez-vous sur </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Envoyer le rapport</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Décrivez votre problème ici.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrer</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Rechercher dans</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>En savoir plus</translation>
    </message>
</context>
<context>
    <name>CLibraryModel</name>
    <message>
        <source>ITunes</source>
        <translation>iTunes</translation>
    </message>
    <message>
        <source>Loading library…</source>
        <translation>Chargement de la bibliothèque…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Listes de lecture</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Films</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Sonneries</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Séries TV</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Achats</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Fichiers multimédias (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Écouter la sélection</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Une sonnerie nommée «&#xa0;%1&#xa0;» existe déjà dans votre bibliothèque.&lt;br&gt;La remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Je crée la sonnerie %1 avec Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Afficher ou masquer la pochette et l&apos;aperçu vidéo</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Ouvrir des fichiers</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Zoom arrière sur la chronologie</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Zoom avant sur la chronologie</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Définir comme début</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Définir comme fin</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Baisser le volume</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Augmenter le volume</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Quitter l&apos;édition</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Fondu sortant</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Fondu entrant</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Créer la sonnerie</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Tweeter votre sonnerie</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Retrouvez-nous sur Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Tout ramener au premier plan</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos de Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistance</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Rubriques d&apos;aide</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Rapport de plantage</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Retrouvez-nous sur &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Retrouvez-nous sur &amp;Twitter</translation>
    </message>
    <message>
        <source>Vandrel &amp;Clipwell</source>
        <translation>Vandrel &amp;Clipwell</translation>
    </message>
    <message>
        <source>Vandrel &amp;Discwell</source>
        <translation>Vandrel &amp;Discwell</translation>
    </message>
    <message>
        <source>Check &amp;Upgrade</source>
        <translation>Rechercher des &amp;mises à jour</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Échec de la connexion au réseau.&lt;br&gt;Vérifiez que les paramètres du proxy sont valides.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>L&apos;URL n&apos;est pas valide</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Désolé, les informations sur le produit sont introuvables.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>La sélection dure %1 secondes. Les téléphones refusent ce type de sonnerie au-delà de %2 secondes.&lt;br&gt;La créer quand même ?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Mesure…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Silencieux</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Sonie de la sélection telle qu’elle sera écrite ; crête vraie %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normaliser</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Standard (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Fort (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Règle le gain pour que la sonnerie ait la sonie choisie, sans saturation</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Suggérer le meilleur passage</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Suggérer le &amp;meilleur passage</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume : %1 %</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Début à la position de lecture</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Fin à la position de lecture</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Avancer le début</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Reculer le début</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Avancer la fin</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Reculer la fin</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Lecture ou pause</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Écouter la sélection</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Écouter en boucle</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Reculer d&apos;une seconde</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Avancer d&apos;une seconde</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Aller au début de la sélection</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Aller à la fin de la sélection</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Rechercher dans la bibliothèque</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Baisser le volume</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Monter le volume</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Durée du fondu d&apos;entrée en secondes</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Durée du fondu de sortie en secondes</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Type de sonnerie</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Faire défiler la forme d&apos;onde</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Lire ou mettre en pause l&apos;aperçu</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Fondu d&apos;entrée</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Heure de fin</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normaliser</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Change le volume de la sonnerie ; la normalisation le remplace</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Enregistre la sélection comme sonnerie</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Une sonnerie est en cours d&apos;écriture. Fermer Tonewright quand elle sera terminée ?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>Fe&amp;nêtres</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>E&amp;xtras</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>CNewestDlgClass</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>COptionDlgClass</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Proxy</source>
        <translation>Proxy</translation>
    </message>
</context>
<context>
    <name>CPopDlg</name>
    <message>
        <source> </source>
        <translation> </translation>
    </message>
</context>
<context>
    <name>CProxyOptionWidget</name>
    <message>
        <source>Http</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>Socks5</source>
        <translation>SOCKS5</translation>
    </message>
    <message>
        <source>HttpCaching</source>
        <translation>HTTP (cache)</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP (cache)</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>Utiliser un proxy</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Hôte&#xa0;:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port&#xa0;:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Type de proxy</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Nom d&apos;utilisateur</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Mot de passe</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>Sonnerie iPhone</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>Son d&apos;alerte iPhone</translation>
    </message>
    <message>
        <source>Android (Ogg)</source>
        <translation>Android (Ogg)</translation>
    </message>
    <message>
        <source>Android (MP3)</source>
        <translation>Android (MP3)</translation>
    </message>
    <message>
        <source>AAC audio (.m4a)</source>
        <translation>Audio AAC (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 ajouté aux Sonneries</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 a été créé, mais la bibliothèque ne l&apos;a pas pris</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Désolé, le fichier &amp;quot;%1&amp;quot; n&apos;a pas pu être lu.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Vérifiez qu&apos;il est toujours là, puis réessayez.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; n&apos;est pas un fichier multimédia.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Choisissez une chanson ou une vidéo.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; ne contient aucun son.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Choisissez une chanson ou une vidéo avec du son.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; est trop court.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>Une sonnerie dure au moins %1 secondes.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; est trop long.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>L’éditeur ouvre jusqu’à %1 heures %2 minutes de son.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; n’est pas un fichier.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Les tubes et les périphériques ne peuvent pas être ouverts. Choisissez une chanson ou une vidéo.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Rechercher automatiquement les mises à jour</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Nombre de jours entre les recherches</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Chaque jour</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Chaque semaine</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Chaque mois</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Télécharger maintenant</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Une nouvelle version est disponible&#xa0;! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Nouveautés de cette version&#xa0;:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Espace lit, Maj+Espace écoute la sélection, I et O fixent son début et sa fin, Alt et Ctrl avec les flèches déplacent ses bords</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Forme d&apos;onde, aucun morceau ouvert</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Sélection de %1 à %2 sur %3</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Copyright © 2010-2026 Vandrel Software. All rights reserved.</source>
        <translation>Copyright © 2010-2026 Vandrel Software. Tous droits réservés.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Assistance&#xa0;: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Site web&#xa0;: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Sélectionnez un fichier dans la liste de gauche,&lt;br /&gt;ou faites glisser un morceau ou une vidéo dans la fenêtre.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Désolé, le fichier &amp;quot;%1&amp;quot; n&apos;a pas pu être converti correctement.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Une erreur s&apos;est produite.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Réessayez ou importez un autre fichier.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Vous utilisez la dernière version&#xa0;!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
