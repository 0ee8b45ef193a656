<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Editor</name>
    <message>
        <source>%1  ·  %2 m × %3 m</source>
        <translation>%1  ·  %2 m × %3 m</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 cannot be compared. %2</source>
        <translation>%1 kann nicht verglichen werden. %2</translation>
    </message>
    <message>
        <source>%1 is locked</source>
        <translation>%1 ist gesperrt</translation>
    </message>
    <message>
        <source>%1 is shown</source>
        <translation>%1 ist sichtbar</translation>
    </message>
    <message>
        <source>%1 m, %2 m</source>
        <translation>%1 m, %2 m</translation>
    </message>
    <message>
        <source>%1 symbols</source>
        <translation>%1 Symbole</translation>
    </message>
    <message>
        <source>%1, %2 m × %3 m</source>
        <translation>%1, %2 m × %3 m</translation>
    </message>
    <message>
        <source>%1[*] (%2) - Korrin</source>
        <translation>%1[*] (%2) - Korrin</translation>
    </message>
    <message>
        <source>%1[*] - Korrin</source>
        <translation>%1[*] - Korrin</translation>
    </message>
    <message>
        <source>&amp;Accept…</source>
        <translation>&amp;Hinnehmen …</translation>
    </message>
    <message>
        <source>&amp;Align</source>
        <translation>&amp;Ausrichten</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>&amp;Anordnen</translation>
    </message>
    <message>
        <source>&amp;Changes Since…</source>
        <translation>&amp;Änderungen seit …</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Delete Them</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Dimensions</source>
        <translation>&amp;Maße</translation>
    </message>
    <message>
        <source>&amp;Discard Them</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Ausgeben</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Fix</source>
        <translation>&amp;Beheben</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>&amp;Raster</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>&amp;Gruppieren</translation>
    </message>
    <message>
        <source>&amp;Look at It…</source>
        <translation>&amp;Ansehen …</translation>
    </message>
    <message>
        <source>&amp;Move to Another Layer</source>
        <translation>Auf eine andere Ebene &amp;verschieben</translation>
    </message>
    <message>
        <source>&amp;New…</source>
        <translation>&amp;Neu …</translation>
    </message>
    <message>
        <source>&amp;Open Again</source>
        <translation>Wieder ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Open All the Same</source>
        <translation>Trotzdem ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Order</source>
        <translation>&amp;Reihenfolge</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Replace It</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Save without Them</source>
        <translation>Ohne sie &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Ungroup</source>
        <translation>Gruppierung &amp;aufheben</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>+48 V</source>
        <translation>+48 V</translation>
    </message>
    <message>
        <source>1 : %1</source>
        <translation>1 : %1</translation>
    </message>
    <message>
        <source>A complete festival-ready plot with 11 inputs, three mixes, and production notes.</source>
        <translation>Ein vollständiger Plan für Festivals mit 11 Eingängen, drei Mixen und Hinweisen zur Produktion.</translation>
    </message>
    <message>
        <source>A finding is accepted for a reason. Nothing was changed.</source>
        <translation>Ein Befund wird aus einem Grund hingenommen. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>A stage of 12 m by 8 m with nothing on it.</source>
        <translation>Eine Bühne von 12 m mal 8 m, auf der nichts steht.</translation>
    </message>
    <message>
        <source>A visible label helps venue teams read the plot.</source>
        <translation>Mit einer sichtbaren Beschriftung liest das Haus den Plan leichter.</translation>
    </message>
    <message>
        <source>AUDIENCE</source>
        <translation>PUBLIKUM</translation>
    </message>
    <message>
        <source>Accept a Finding</source>
        <translation>Einen Befund hinnehmen</translation>
    </message>
    <message>
        <source>Accepted ones too</source>
        <translation>Auch hingenommene</translation>
    </message>
    <message>
        <source>Accepted: %1</source>
        <translation>Hingenommen: %1</translation>
    </message>
    <message>
        <source>Acoustic guitar</source>
        <translation>Akustische Gitarre</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Add Layer</source>
        <translation>Ebene hinzufügen</translation>
    </message>
    <message>
        <source>Add a source name to the input list.</source>
        <translation>Tragen Sie die Quelle in die Eingangsliste ein.</translation>
    </message>
    <message>
        <source>Add an output patch for %1.</source>
        <translation>Tragen Sie einen Ausgang für %1 ein.</translation>
    </message>
    <message>
        <source>Add an output patch for this mix.</source>
        <translation>Tragen Sie einen Ausgang für diesen Mix ein.</translation>
    </message>
    <message>
        <source>Adds a layer above all others</source>
        <translation>Fügt eine Ebene über allen anderen hinzu</translation>
    </message>
    <message>
        <source>Adds a row below</source>
        <translation>Fügt darunter eine Zeile hinzu</translation>
    </message>
    <message>
        <source>Align &amp;Bottom</source>
        <translation>&amp;Unten ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Centres</source>
        <translation>&amp;Mittig ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Left</source>
        <translation>&amp;Links ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Middles</source>
        <translation>In der &amp;Höhe mittig ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Right</source>
        <translation>&amp;Rechts ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Top</source>
        <translation>&amp;Oben ausrichten</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Verstärker</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Künstler</translation>
    </message>
    <message>
        <source>At the bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>At the top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Audience</source>
        <translation>Publikum</translation>
    </message>
    <message>
        <source>Back&amp;ward</source>
        <translation>Nach hin&amp;ten</translation>
    </message>
    <message>
        <source>Bass amplifier</source>
        <translation>Bassverstärker</translation>
    </message>
    <message>
        <source>Beginning</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Boom stand</source>
        <translation>Galgenstativ</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Cells that do not fit their column were left out: %1.</source>
        <translation>Zellen, die nicht in ihre Spalte passen, wurden ausgelassen: %1.</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>Change Equipment</source>
        <translation>Ausstattung ändern</translation>
    </message>
    <message>
        <source>Change Inputs</source>
        <translation>Eingänge ändern</translation>
    </message>
    <message>
        <source>Change Mixes</source>
        <translation>Monitorwege ändern</translation>
    </message>
    <message>
        <source>Change Notes</source>
        <translation>Anmerkungen ändern</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Channel is below 1</source>
        <translation>Kanal ist kleiner als 1</translation>
    </message>
    <message>
        <source>Choir riser</source>
        <translation>Chorpodest</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Eine Farbe wählen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Colour cannot be read</source>
        <translation>Farbe ist nicht lesbar</translation>
    </message>
    <message>
        <source>Compare With</source>
        <translation>Vergleichen mit</translation>
    </message>
    <message>
        <source>Consoles count their channels and mixes from 1.</source>
        <translation>Pulte zählen ihre Kanäle und Mixe ab 1.</translation>
    </message>
    <message>
        <source>Create &amp;Plot</source>
        <translation>&amp;Plan anlegen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>A&amp;usschneiden</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>DI box</source>
        <translation>DI-Box</translation>
    </message>
    <message>
        <source>DJ table</source>
        <translation>DJ-Tisch</translation>
    </message>
    <message>
        <source>Dar&amp;k Colours</source>
        <translation>&amp;Dunkle Farben</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Dimensions are shown</source>
        <translation>Maße anzeigen</translation>
    </message>
    <message>
        <source>Distribute &amp;Across</source>
        <translation>&amp;Nebeneinander verteilen</translation>
    </message>
    <message>
        <source>Distribute &amp;Down</source>
        <translation>Un&amp;tereinander verteilen</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Drum fill</source>
        <translation>Drumfill</translation>
    </message>
    <message>
        <source>Drum kit</source>
        <translation>Schlagzeug</translation>
    </message>
    <message>
        <source>Drums, bass, guitar, three mixes, and a practical festival input list.</source>
        <translation>Schlagzeug, Bass, Gitarre, drei Mixe und eine brauchbare Eingangsliste für Festivals.</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Duplicate input channel %1</source>
        <translation>Eingangskanal %1 ist doppelt</translation>
    </message>
    <message>
        <source>Duplicate monitor mix %1</source>
        <translation>Monitormix %1 ist doppelt</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Each input channel must be unique.</source>
        <translation>Jeder Eingangskanal darf nur einmal vorkommen.</translation>
    </message>
    <message>
        <source>Each monitor mix number must be unique.</source>
        <translation>Jede Nummer eines Monitormixes darf nur einmal vorkommen.</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Edit &amp;Label</source>
        <translation>Be&amp;schriftung bearbeiten</translation>
    </message>
    <message>
        <source>Electronic Duo</source>
        <translation>Elektronik-Duo</translation>
    </message>
    <message>
        <source>Embedded image is listed twice</source>
        <translation>Eingebettetes Bild ist doppelt aufgeführt</translation>
    </message>
    <message>
        <source>Embedded image is not used</source>
        <translation>Eingebettetes Bild wird nicht benutzt</translation>
    </message>
    <message>
        <source>Empty Stage</source>
        <translation>Leere Bühne</translation>
    </message>
    <message>
        <source>Equipment</source>
        <translation>Ausstattung</translation>
    </message>
    <message>
        <source>Equipment link is invalid</source>
        <translation>Verknüpfung der Ausrüstung ist ungültig</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Export Sheets as PDF</source>
        <translation>Blätter als PDF ausgeben</translation>
    </message>
    <message>
        <source>Export Sheets as SVG</source>
        <translation>Blätter als SVG ausgeben</translation>
    </message>
    <message>
        <source>Export Stage as Picture</source>
        <translation>Bühne als Bild ausgeben</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>Nach v&amp;orn</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Findings (%1)</source>
        <translation>Befunde (%1)</translation>
    </message>
    <message>
        <source>Five-Piece Band</source>
        <translation>Fünfköpfige Band</translation>
    </message>
    <message>
        <source>Flip &amp;Horizontally</source>
        <translation>&amp;Waagerecht spiegeln</translation>
    </message>
    <message>
        <source>Flip &amp;Vertically</source>
        <translation>&amp;Senkrecht spiegeln</translation>
    </message>
    <message>
        <source>Front and back exchanged</source>
        <translation>Vorn und hinten vertauscht</translation>
    </message>
    <message>
        <source>Furniture</source>
        <translation>Möbel</translation>
    </message>
    <message>
        <source>Give %1 channel %2</source>
        <translation>%1: Kanal %2 zuweisen</translation>
    </message>
    <message>
        <source>Give %1 number %2</source>
        <translation>%1: Nummer %2 zuweisen</translation>
    </message>
    <message>
        <source>Give the record in %1 with the identifier %2 a fresh one, its links following</source>
        <translation>%1: Eintrag mit der Kennung %2 bekommt eine neue, seine Verknüpfungen folgen</translation>
    </message>
    <message>
        <source>Grand piano</source>
        <translation>Flügel</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Grid is shown</source>
        <translation>Raster anzeigen</translation>
    </message>
    <message>
        <source>Group and symbol disagree</source>
        <translation>Gruppe und Symbol widersprechen sich</translation>
    </message>
    <message>
        <source>Group is empty</source>
        <translation>Gruppe ist leer</translation>
    </message>
    <message>
        <source>Group lists a symbol twice</source>
        <translation>Gruppe führt ein Symbol doppelt auf</translation>
    </message>
    <message>
        <source>Group lists an unknown symbol</source>
        <translation>Gruppe führt ein unbekanntes Symbol auf</translation>
    </message>
    <message>
        <source>Handrail</source>
        <translation>Geländer</translation>
    </message>
    <message>
        <source>Hidden layer holds symbols</source>
        <translation>Ausgeblendete Ebene enthält Symbole</translation>
    </message>
    <message>
        <source>Hide the label of %1</source>
        <translation>%1: Beschriftung ausblenden</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Horn stand</source>
        <translation>Bläserpult</translation>
    </message>
    <message>
        <source>Identifier is used in two lists</source>
        <translation>Kennung steht in zwei Listen</translation>
    </message>
    <message>
        <source>In-ear monitor</source>
        <translation>In-Ear-Monitor</translation>
    </message>
    <message>
        <source>Input is not placed</source>
        <translation>Eingang steht nicht auf dem Plan</translation>
    </message>
    <message>
        <source>Input link is invalid</source>
        <translation>Verknüpfung des Eingangs ist ungültig</translation>
    </message>
    <message>
        <source>Input source is missing</source>
        <translation>Quelle des Eingangs fehlt</translation>
    </message>
    <message>
        <source>Inputs</source>
        <translation>Eingänge</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Invalid equipment quantity</source>
        <translation>Ungültige Anzahl in der Ausrüstung</translation>
    </message>
    <message>
        <source>It asks for a program that reads version %1 of the format; this one reads up to version %2. The file is left as it is. Update this program, or ask whoever sent the plot for an older version of it.</source>
        <translation>Die Datei verlangt ein Programm, das Version %1 des Formats liest; dieses liest bis Version %2. Die Datei bleibt, wie sie ist. Aktualisieren Sie dieses Programm oder bitten Sie den Absender um eine ältere Fassung.</translation>
    </message>
    <message>
        <source>It is not what you opened or saved last. Saving replaces what the other program wrote.</source>
        <translation>Die Datei ist nicht, was Sie zuletzt geöffnet oder gespeichert haben. Speichern ersetzt, was das andere Programm geschrieben hat.</translation>
    </message>
    <message>
        <source>It was made by a newer version of this program.</source>
        <translation>Die Datei stammt von einer neueren Version dieses Programms.</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Gegenstand</translation>
    </message>
    <message>
        <source>Keep only the first entry of %1</source>
        <translation>%1: nur den ersten Eintrag behalten</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Label is shown</source>
        <translation>Beschriftung anzeigen</translation>
    </message>
    <message>
        <source>Label size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>Laptop</source>
        <translation>Laptop</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Layer %1</source>
        <translation>Ebene %1</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Left and right exchanged</source>
        <translation>Links und rechts vertauscht</translation>
    </message>
    <message>
        <source>Let %1 list the symbols that name it</source>
        <translation>%1: die Symbole aufführen, die sie nennen</translation>
    </message>
    <message>
        <source>Letter</source>
        <translation>Letter</translation>
    </message>
    <message>
        <source>Line %1, column %2: </source>
        <translation>Zeile %1, Spalte %2: </translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verknüpfen</translation>
    </message>
    <message>
        <source>Link %1 to %2</source>
        <translation>%1: verknüpfen mit %2</translation>
    </message>
    <message>
        <source>Link to Symbol</source>
        <translation>Mit Symbol verknüpfen</translation>
    </message>
    <message>
        <source>Links the selected rows to the symbol that is selected on the stage. Rows can be dragged onto a symbol as well.</source>
        <translation>Verknüpft die ausgewählten Zeilen mit dem Symbol, das auf der Bühne ausgewählt ist. Zeilen können auch auf ein Symbol gezogen werden.</translation>
    </message>
    <message>
        <source>List each symbol of %1 once</source>
        <translation>%1: jedes Symbol einmal aufführen</translation>
    </message>
    <message>
        <source>Loc&amp;k</source>
        <translation>S&amp;perren</translation>
    </message>
    <message>
        <source>Lock or Unlock Layer</source>
        <translation>Ebene sperren oder entsperren</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Microphone or DI</source>
        <translation>Mikrofon oder DI</translation>
    </message>
    <message>
        <source>Mix</source>
        <translation>Weg</translation>
    </message>
    <message>
        <source>Mix number is below 1</source>
        <translation>Nummer des Mixes ist kleiner als 1</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>Monitor Mixes</source>
        <translation>Monitorwege</translation>
    </message>
    <message>
        <source>Monitor link is invalid</source>
        <translation>Verknüpfung des Monitormixes ist ungültig</translation>
    </message>
    <message>
        <source>Monitor mix is not placed</source>
        <translation>Monitormix steht nicht auf dem Plan</translation>
    </message>
    <message>
        <source>Monitor output is missing</source>
        <translation>Ausgang des Monitormixes fehlt</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Move %1 inside the stage, to x %2 mm, y %3 mm</source>
        <translation>%1: auf die Bühne schieben, nach x %2 mm, y %3 mm</translation>
    </message>
    <message>
        <source>Move Layer Down</source>
        <translation>Ebene nach unten</translation>
    </message>
    <message>
        <source>Move Layer Up</source>
        <translation>Ebene nach oben</translation>
    </message>
    <message>
        <source>Move the symbol inside the stage boundary.</source>
        <translation>Schieben Sie das Symbol auf die Bühne.</translation>
    </message>
    <message>
        <source>Move the symbol until its turned corners are inside.</source>
        <translation>Schieben Sie das Symbol, bis seine gedrehten Ecken auf der Bühne liegen.</translation>
    </message>
    <message>
        <source>Move to La&amp;yer</source>
        <translation>Auf &amp;Ebene verschieben</translation>
    </message>
    <message>
        <source>Move to Layer</source>
        <translation>Auf Ebene verschieben</translation>
    </message>
    <message>
        <source>Moves the layer down</source>
        <translation>Schiebt die Ebene nach unten</translation>
    </message>
    <message>
        <source>Moves the layer up</source>
        <translation>Schiebt die Ebene nach oben</translation>
    </message>
    <message>
        <source>Moves the selected rows down</source>
        <translation>Schiebt die ausgewählten Zeilen nach unten</translation>
    </message>
    <message>
        <source>Moves the selected rows up</source>
        <translation>Schiebt die ausgewählten Zeilen nach oben</translation>
    </message>
    <message>
        <source>Music stand</source>
        <translation>Notenpult</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>New Plot</source>
        <translation>Neuer Plan</translation>
    </message>
    <message>
        <source>New symbols go on this layer</source>
        <translation>Neue Symbole kommen auf diese Ebene</translation>
    </message>
    <message>
        <source>No symbol shows this image.</source>
        <translation>Kein Symbol zeigt dieses Bild.</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Anmerkungen</translation>
    </message>
    <message>
        <source>Nothing has changed since %1.</source>
        <translation>Seit %1 hat sich nichts geändert.</translation>
    </message>
    <message>
        <source>Nothing to mend.</source>
        <translation>Nichts zu beheben.</translation>
    </message>
    <message>
        <source>Number is below 1</source>
        <translation>Nummer ist kleiner als 1</translation>
    </message>
    <message>
        <source>One identifier stands in %1.</source>
        <translation>Dieselbe Kennung steht in: %1.</translation>
    </message>
    <message>
        <source>Only you can know what is right here</source>
        <translation>Was hier richtig ist, wissen nur Sie</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open a Plot</source>
        <translation>Einen Plan öffnen</translation>
    </message>
    <message>
        <source>Open findings: %1</source>
        <translation>Offene Befunde: %1</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Anderes</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>PNG (*.png)</source>
        <translation>PNG (*.png)</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Percussion</source>
        <translation>Percussion</translation>
    </message>
    <message>
        <source>Performer</source>
        <translation>Musiker</translation>
    </message>
    <message>
        <source>Person seated</source>
        <translation>Sitzende Person</translation>
    </message>
    <message>
        <source>Picture of the plot</source>
        <translation>Bild des Plans</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>Plot and Stage</source>
        <translation>Plan und Bühne</translation>
    </message>
    <message>
        <source>Plots (*.json);;All (*)</source>
        <translation>Pläne (*.json);;Alle (*)</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Power Trio</source>
        <translation>Power-Trio</translation>
    </message>
    <message>
        <source>Power distribution</source>
        <translation>Stromverteiler</translation>
    </message>
    <message>
        <source>Prepared by</source>
        <translation>Erstellt von</translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation>Druck&amp;vorschau …</translation>
    </message>
    <message>
        <source>Put %1 on the first layer, %2</source>
        <translation>%1: auf die erste Ebene legen, %2</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Quantity must be greater than zero.</source>
        <translation>Die Anzahl muss größer als null sein.</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Ungespeichertes wiederherstellen</translation>
    </message>
    <message>
        <source>Recover unsaved changes to “%1”?</source>
        <translation>Ungespeicherte Änderungen an „%1“ wiederherstellen?</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1: entfernen</translation>
    </message>
    <message>
        <source>Remove Layer</source>
        <translation>Ebene entfernen</translation>
    </message>
    <message>
        <source>Remove the channel of %1</source>
        <translation>%1: Kanal entfernen</translation>
    </message>
    <message>
        <source>Remove the colour of %1</source>
        <translation>%1: Farbe entfernen</translation>
    </message>
    <message>
        <source>Remove the empty %1</source>
        <translation>%1: leer, entfernen</translation>
    </message>
    <message>
        <source>Remove the link of %1 to a symbol that is not in the plot</source>
        <translation>%1: Verknüpfung mit einem fehlenden Symbol entfernen</translation>
    </message>
    <message>
        <source>Remove the number of %1</source>
        <translation>%1: Nummer entfernen</translation>
    </message>
    <message>
        <source>Remove the riser height of %1</source>
        <translation>%1: Podesthöhe entfernen</translation>
    </message>
    <message>
        <source>Remove the unused %1</source>
        <translation>%1: unbenutzt, entfernen</translation>
    </message>
    <message>
        <source>Remove the unused %1, all %2 entries</source>
        <translation>%1: unbenutzt, alle %2 Einträge entfernen</translation>
    </message>
    <message>
        <source>Rename Layer</source>
        <translation>Ebene umbenennen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Fassung</translation>
    </message>
    <message>
        <source>Riser</source>
        <translation>Podest</translation>
    </message>
    <message>
        <source>Riser height</source>
        <translation>Podesthöhe</translation>
    </message>
    <message>
        <source>Riser height is not a number</source>
        <translation>Podesthöhe ist keine Zahl</translation>
    </message>
    <message>
        <source>Round-base stand</source>
        <translation>Stativ mit Rundfuß</translation>
    </message>
    <message>
        <source>SVG (*.svg)</source>
        <translation>SVG (*.svg)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Save the Plot</source>
        <translation>Den Plan speichern</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Save under &amp;Another Name…</source>
        <translation>Unter &amp;anderem Namen speichern …</translation>
    </message>
    <message>
        <source>Save under another name, or close the other window first.</source>
        <translation>Speichern Sie unter einem anderen Namen oder schließen Sie zuerst das andere Fenster.</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Gespeichert.</translation>
    </message>
    <message>
        <source>Saving would drop something from “%1”</source>
        <translation>Speichern würde etwas aus „%1“ weglassen</translation>
    </message>
    <message>
        <source>Search symbols</source>
        <translation>Symbole suchen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Select &amp;Nothing</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>Select something on the stage to see its fields here.</source>
        <translation>Wählen Sie etwas auf der Bühne aus, um seine Felder hier zu sehen.</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Selects the symbol of the row</source>
        <translation>Wählt das Symbol der Zeile aus</translation>
    </message>
    <message>
        <source>Set the label of %1 to %2, the name of %3</source>
        <translation>%1: Beschriftung %2 setzen, den Namen von %3</translation>
    </message>
    <message>
        <source>Set the label of %1 to %2, the source of %3</source>
        <translation>%1: Beschriftung %2 setzen, die Quelle von %3</translation>
    </message>
    <message>
        <source>Set the quantity of %1 to 1</source>
        <translation>%1: Anzahl auf 1 setzen</translation>
    </message>
    <message>
        <source>Set the source of %1 to %2, the label of its symbol</source>
        <translation>%1: Quelle %2 setzen, die Beschriftung des Symbols</translation>
    </message>
    <message>
        <source>Sheets</source>
        <translation>Blätter</translation>
    </message>
    <message>
        <source>Sheets as &amp;PDF…</source>
        <translation>Blätter als &amp;PDF …</translation>
    </message>
    <message>
        <source>Sheets as &amp;SVG…</source>
        <translation>Blätter als &amp;SVG …</translation>
    </message>
    <message>
        <source>Show on Stage</source>
        <translation>Auf der Bühne zeigen</translation>
    </message>
    <message>
        <source>Show or Hide Layer</source>
        <translation>Ebene zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Show the %1</source>
        <translation>%1: einblenden</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Side fill</source>
        <translation>Sidefill</translation>
    </message>
    <message>
        <source>Solo Acoustic</source>
        <translation>Solo akustisch</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>Stage as Pi&amp;cture…</source>
        <translation>Bühne als &amp;Bild …</translation>
    </message>
    <message>
        <source>Stage plots (*.json)</source>
        <translation>Bühnenpläne (*.json)</translation>
    </message>
    <message>
        <source>Stage plots (*.json);;All files (*)</source>
        <translation>Bühnenpläne (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Stairs</source>
        <translation>Treppe</translation>
    </message>
    <message>
        <source>Stand</source>
        <translation>Stativ</translation>
    </message>
    <message>
        <source>Standard La&amp;yout</source>
        <translation>Standardan&amp;ordnung</translation>
    </message>
    <message>
        <source>Stereo playback, two performers, IEMs, vocal inputs, and clean power.</source>
        <translation>Zuspielung in Stereo, zwei Personen, In-Ears, Gesangseingänge und sauberer Strom.</translation>
    </message>
    <message>
        <source>Stool</source>
        <translation>Hocker</translation>
    </message>
    <message>
        <source>Sub-snake</source>
        <translation>Stagebox</translation>
    </message>
    <message>
        <source>Supplied by</source>
        <translation>Gestellt von</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Symbol asset is missing</source>
        <translation>Bild des Symbols fehlt</translation>
    </message>
    <message>
        <source>Symbol is on no layer</source>
        <translation>Symbol liegt auf keiner Ebene</translation>
    </message>
    <message>
        <source>Symbol is outside the stage</source>
        <translation>Symbol liegt außerhalb der Bühne</translation>
    </message>
    <message>
        <source>Symbol label is empty</source>
        <translation>Beschriftung des Symbols ist leer</translation>
    </message>
    <message>
        <source>Symbol names a missing group</source>
        <translation>Symbol nennt eine Gruppe, die es nicht gibt</translation>
    </message>
    <message>
        <source>Symbol without a label</source>
        <translation>Symbol ohne Beschriftung</translation>
    </message>
    <message>
        <source>Symbols</source>
        <translation>Symbole</translation>
    </message>
    <message>
        <source>Symbols stand on this layer: %1. What becomes of them?</source>
        <translation>Symbole auf dieser Ebene: %1. Was wird aus ihnen?</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tisch</translation>
    </message>
    <message>
        <source>Take %1 out of a group that does not exist</source>
        <translation>%1: aus einer Gruppe nehmen, die es nicht gibt</translation>
    </message>
    <message>
        <source>Take what is no symbol out of %1</source>
        <translation>%1: herausnehmen, was kein Symbol ist</translation>
    </message>
    <message>
        <source>Takes the layer out</source>
        <translation>Nimmt die Ebene heraus</translation>
    </message>
    <message>
        <source>Takes the link to a symbol away</source>
        <translation>Nimmt die Verknüpfung mit einem Symbol weg</translation>
    </message>
    <message>
        <source>Takes the selected rows out</source>
        <translation>Nimmt die ausgewählten Zeilen heraus</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The %1 is hidden and holds %2 symbols that will not be printed.</source>
        <translation>%1 ist ausgeblendet und enthält %2 Symbole, die nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>The %1 is hidden and holds 1 symbol that will not be printed.</source>
        <translation>%1 ist ausgeblendet und enthält 1 Symbol, das nicht gedruckt wird.</translation>
    </message>
    <message>
        <source>The clipboard holds no part of a plot: %1</source>
        <translation>Die Zwischenablage enthält keinen Teil eines Plans: %1</translation>
    </message>
    <message>
        <source>The document says version %1 of the format, and version %2 is the newest known here.</source>
        <translation>Das Dokument nennt Version %1 des Formats; die neueste, die hier bekannt ist, ist Version %2.</translation>
    </message>
    <message>
        <source>The file holds entries that this program does not know and cannot keep; they may come from another program. Save under another name to keep the file as it is.</source>
        <translation>Die Datei enthält Einträge, die dieses Programm nicht kennt und nicht behalten kann; sie können von einem anderen Programm stammen. Speichern Sie unter einem anderen Namen, damit die Datei bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>The file holds entries that this program does not know. They are named before the first save.</source>
        <translation>Die Datei enthält Einträge, die dieses Programm nicht kennt. Sie werden vor dem ersten Speichern genannt.</translation>
    </message>
    <message>
        <source>The file is left as it is. Choose another one, or a backup of it.</source>
        <translation>Die Datei bleibt, wie sie ist. Wählen Sie eine andere oder eine Sicherung von ihr.</translation>
    </message>
    <message>
        <source>The file is left as it is. You can look at its picture.</source>
        <translation>Die Datei bleibt, wie sie ist. Sie können ihr Bild ansehen.</translation>
    </message>
    <message>
        <source>The group does not list exactly the symbols that name it.</source>
        <translation>Die Gruppe führt nicht genau die Symbole auf, die sie nennen.</translation>
    </message>
    <message>
        <source>The group lists a symbol more than once.</source>
        <translation>Die Gruppe führt ein Symbol mehr als einmal auf.</translation>
    </message>
    <message>
        <source>The group lists an identifier that no symbol has.</source>
        <translation>Die Gruppe führt eine Kennung auf, die kein Symbol hat.</translation>
    </message>
    <message>
        <source>The group lists no symbols.</source>
        <translation>Die Gruppe führt keine Symbole auf.</translation>
    </message>
    <message>
        <source>The group of this symbol does not exist.</source>
        <translation>Die Gruppe dieses Symbols gibt es nicht.</translation>
    </message>
    <message>
        <source>The items of the plot. Tab selects the next one, arrow keys move it.</source>
        <translation>Die Gegenstände des Plans. Die Tabulatortaste wählt den nächsten aus, Pfeiltasten verschieben ihn.</translation>
    </message>
    <message>
        <source>The last layer, a locked one and one with locked symbols stay. Unlock them first.</source>
        <translation>Die letzte Ebene, eine gesperrte und eine mit gesperrten Symbolen bleiben. Entsperren Sie sie zuerst.</translation>
    </message>
    <message>
        <source>The layer of this symbol does not exist.</source>
        <translation>Die Ebene dieses Symbols gibt es nicht.</translation>
    </message>
    <message>
        <source>The linked plot item no longer exists.</source>
        <translation>Das verknüpfte Symbol gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The list of accepted findings beside the plot cannot be understood and is not replaced. What you accept holds until the window closes.</source>
        <translation>Die Liste der hingenommenen Befunde neben dem Plan ist nicht verständlich und wird nicht ersetzt. Was Sie hinnehmen, gilt, bis das Fenster schließt.</translation>
    </message>
    <message>
        <source>The list of accepted findings cannot be read: %1</source>
        <translation>Die Liste der hingenommenen Befunde kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The list of accepted findings was made by a newer version. It is left as it is.</source>
        <translation>Die Liste der hingenommenen Befunde stammt von einer neueren Version. Sie bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>The list of embedded images names this one more than once.</source>
        <translation>Die Liste der eingebetteten Bilder nennt dieses mehr als einmal.</translation>
    </message>
    <message>
        <source>The plot cannot be saved with this height.</source>
        <translation>Mit dieser Höhe lässt sich der Plan nicht speichern.</translation>
    </message>
    <message>
        <source>The plot was not saved</source>
        <translation>Der Plan wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>The program ended unexpectedly. Changes up to %1 were kept.</source>
        <translation>Das Programm endete unerwartet. Änderungen bis %1 wurden aufgehoben.</translation>
    </message>
    <message>
        <source>The symbol cannot be rendered.</source>
        <translation>Das Symbol kann nicht gezeichnet werden.</translation>
    </message>
    <message>
        <source>They are lost if you do not save them.</source>
        <translation>Sie gehen verloren, wenn Sie sie nicht speichern.</translation>
    </message>
    <message>
        <source>This input is not linked to a plot symbol.</source>
        <translation>Dieser Eingang ist mit keinem Symbol verknüpft.</translation>
    </message>
    <message>
        <source>This mix is not linked to a monitor symbol.</source>
        <translation>Dieser Mix ist mit keinem Monitorsymbol verknüpft.</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>To &amp;Back</source>
        <translation>Ganz nach &amp;hinten</translation>
    </message>
    <message>
        <source>To &amp;Front</source>
        <translation>Ganz nach &amp;vorn</translation>
    </message>
    <message>
        <source>To the left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>To the right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Turn &amp;Left</source>
        <translation>Nach &amp;links drehen</translation>
    </message>
    <message>
        <source>Turn &amp;Right</source>
        <translation>Nach &amp;rechts drehen</translation>
    </message>
    <message>
        <source>Turned by</source>
        <translation>Gedreht um</translation>
    </message>
    <message>
        <source>Turned symbol leaves the stage</source>
        <translation>Gedrehtes Symbol ragt über die Bühne hinaus</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>U&amp;nlock</source>
        <translation>E&amp;ntsperren</translation>
    </message>
    <message>
        <source>Unlink</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Upright bass</source>
        <translation>Kontrabass</translation>
    </message>
    <message>
        <source>Venue</source>
        <translation>Spielort</translation>
    </message>
    <message>
        <source>Vocal, acoustic guitar, DI, wedge, inputs, and a compact 8 × 6 m stage.</source>
        <translation>Gesang, akustische Gitarre, DI, Monitor, Eingänge und eine kleine Bühne von 8 × 6 m.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Wedge monitor</source>
        <translation>Monitorbox</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>What does the new plot begin with?</source>
        <translation>Womit beginnt der neue Plan?</translation>
    </message>
    <message>
        <source>What has changed since %1:</source>
        <translation>Was sich seit %1 geändert hat:</translation>
    </message>
    <message>
        <source>What to do</source>
        <translation>Was zu tun ist</translation>
    </message>
    <message>
        <source>Whoever saves second is asked before anything is replaced. In this window, a crash would lose what you have not saved.</source>
        <translation>Wer als Zweiter speichert, wird gefragt, bevor etwas ersetzt wird. In diesem Fenster ginge bei einem Absturz verloren, was nicht gespeichert ist.</translation>
    </message>
    <message>
        <source>Whole &amp;Stage</source>
        <translation>Ganze &amp;Bühne</translation>
    </message>
    <message>
        <source>Why may it stay? The reason is kept beside the plot.</source>
        <translation>Warum darf er bleiben? Der Grund wird neben dem Plan aufbewahrt.</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>With the equipment</source>
        <translation>Mit der Ausstattung</translation>
    </message>
    <message>
        <source>With the inputs</source>
        <translation>Mit den Eingängen</translation>
    </message>
    <message>
        <source>With the mixes</source>
        <translation>Mit den Monitorwegen</translation>
    </message>
    <message>
        <source>With the notes</source>
        <translation>Mit den Anmerkungen</translation>
    </message>
    <message>
        <source>Write six or eight hexadecimal digits.</source>
        <translation>Schreiben Sie sechs oder acht hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>Written by a newer version</source>
        <translation>Von einer neueren Version geschrieben</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>YYYY-MM-DD hh:mm</source>
        <translation>JJJJ-MM-TT hh:mm</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>amplifier %1</source>
        <translation>Verstärker %1</translation>
    </message>
    <message>
        <source>and</source>
        <translation>und</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>and more</source>
        <translation>und mehr</translation>
    </message>
    <message>
        <source>asset %1</source>
        <translation>Bild %1</translation>
    </message>
    <message>
        <source>at x %1 mm, y %2 mm</source>
        <translation>bei x %1 mm, y %2 mm</translation>
    </message>
    <message>
        <source>custom %1</source>
        <translation>Symbol %1</translation>
    </message>
    <message>
        <source>different</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>equipment</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>equipment %1</source>
        <translation>Ausrüstung %1</translation>
    </message>
    <message>
        <source>furniture %1</source>
        <translation>Möbel %1</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>in row %1</source>
        <translation>in Zeile %1</translation>
    </message>
    <message>
        <source>input %1</source>
        <translation>Eingang %1</translation>
    </message>
    <message>
        <source>inputs</source>
        <translation>Eingänge</translation>
    </message>
    <message>
        <source>instrument %1</source>
        <translation>Instrument %1</translation>
    </message>
    <message>
        <source>layer %1</source>
        <translation>Ebene %1</translation>
    </message>
    <message>
        <source>layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>microphone %1</source>
        <translation>Mikrofon %1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>mix %1</source>
        <translation>Mix %1</translation>
    </message>
    <message>
        <source>mixes</source>
        <translation>Mixe</translation>
    </message>
    <message>
        <source>monitor %1</source>
        <translation>Monitor %1</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>not saved yet</source>
        <translation>noch nicht gespeichert</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>performer %1</source>
        <translation>Person %1</translation>
    </message>
    <message>
        <source>plot</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>power %1</source>
        <translation>Strom %1</translation>
    </message>
    <message>
        <source>riser %1</source>
        <translation>Podest %1</translation>
    </message>
    <message>
        <source>symbols</source>
        <translation>Symbole</translation>
    </message>
    <message>
        <source>unnamed</source>
        <translation>ohne Namen</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>“%1” cannot be edited as it is</source>
        <translation>„%1“ kann so nicht bearbeitet werden</translation>
    </message>
    <message>
        <source>“%1” cannot be opened</source>
        <translation>„%1“ kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>“%1” is no number for the column “%2”.</source>
        <translation>„%1“ ist keine Zahl für die Spalte „%2“.</translation>
    </message>
    <message>
        <source>“%1” is no stage plot, or is damaged</source>
        <translation>„%1“ ist kein Bühnenplan oder beschädigt</translation>
    </message>
    <message>
        <source>“%1” is open in another window</source>
        <translation>„%1“ ist in einem anderen Fenster geöffnet</translation>
    </message>
    <message>
        <source>“%1” was changed by another program</source>
        <translation>„%1“ wurde von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>“%1” was made by a newer version</source>
        <translation>„%1“ stammt von einer neueren Version</translation>
    </message>
    <message>
        <source>The file is empty. Copy it again from where it came from.</source>
        <translation>Die Datei ist leer. Kopieren Sie sie noch einmal von dort, wo sie herkommt.</translation>
    </message>
    <message>
        <source>It is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF. Export it as PNG and insert that.</source>
        <translation>Es ist weder PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF noch PDF. Exportieren Sie es als PNG und fügen Sie das ein.</translation>
    </message>
    <message>
        <source>The image is damaged, cut short or of a kind that is not read. Open it in a picture program and save it anew as PNG or JPEG.</source>
        <translation>Das Bild ist beschädigt, abgeschnitten oder von einer Art, die nicht gelesen wird. Öffnen Sie es in einem Bildprogramm und speichern Sie es neu als PNG oder JPEG.</translation>
    </message>
    <message>
        <source>The image “%1” is not there, or is not safe to show: it will not be printed. Put its file beside the plot, or delete the symbol and insert the image again.</source>
        <translation>Das Bild „%1“ ist nicht da oder nicht sicher zu zeigen: es wird nicht gedruckt. Legen Sie seine Datei neben den Plan, oder löschen Sie das Symbol und fügen Sie das Bild noch einmal ein.</translation>
    </message>
    <message>
        <source>The image has a side of 0 pixels. Export it again.</source>
        <translation>Eine Seite des Bildes hat 0 Pixel. Exportieren Sie es noch einmal.</translation>
    </message>
    <message>
        <source>A side of the image is longer than %1 pixels. Make it smaller; 2000 pixels are plenty on paper.</source>
        <translation>Eine Seite des Bildes ist länger als %1 Pixel. Verkleinern Sie es; 2000 Pixel reichen auf Papier bei weitem.</translation>
    </message>
    <message>
        <source>The image has more than %1 pixels. Make it smaller; 2000 pixels a side are plenty on paper.</source>
        <translation>Das Bild hat mehr als %1 Pixel. Verkleinern Sie es; 2000 Pixel je Seite reichen auf Papier bei weitem.</translation>
    </message>
    <message>
        <source>The PDF needs a password, or is encrypted in a way that is not read. Save it without a password.</source>
        <translation>Das PDF verlangt ein Passwort oder ist auf eine Art verschlüsselt, die nicht gelesen wird. Speichern Sie es ohne Passwort.</translation>
    </message>
    <message>
        <source>The PDF is damaged, has no page, or takes too much work to read. Print it into a new PDF and insert that.</source>
        <translation>Das PDF ist beschädigt, hat keine Seite oder ist zu aufwendig zu lesen. Drucken Sie es in ein neues PDF und fügen Sie das ein.</translation>
    </message>
    <message>
        <source>The first page of the PDF has no usable size. Print it into a new PDF and insert that.</source>
        <translation>Die erste Seite des PDF hat keine brauchbare Größe. Drucken Sie es in ein neues PDF und fügen Sie das ein.</translation>
    </message>
    <message>
        <source>The first page of the PDF is larger than %1 points. Print it on smaller paper.</source>
        <translation>Die erste Seite des PDF ist größer als %1 Punkt. Drucken Sie es auf kleineres Papier.</translation>
    </message>
    <message>
        <source>With it, the images of this plot would have more than %1 pixels together. Make it smaller, or delete another image.</source>
        <translation>Mit ihm hätten die Bilder dieses Plans zusammen mehr als %1 Pixel. Verkleinern Sie es, oder löschen Sie ein anderes Bild.</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>It %1.</source>
        <translation>Meldung: %1.</translation>
    </message>
    <message>
        <source>It cannot be kept beside the plot: %1. Save the plot in another folder and insert it again.</source>
        <translation>Es kann nicht neben dem Plan abgelegt werden: %1. Speichern Sie den Plan in einem anderen Ordner und fügen Sie es noch einmal ein.</translation>
    </message>
    <message>
        <source>Insert Image</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>Insert Images</source>
        <translation>Bilder einfügen</translation>
    </message>
    <message>
        <source>Insert &amp;Image…</source>
        <translation>B&amp;ild einfügen…</translation>
    </message>
    <message>
        <source>Further files that were not inserted: %1</source>
        <translation>Weitere Dateien, die nicht eingefügt wurden: %1</translation>
    </message>
    <message>
        <source>The plot has no layer to put an image on. Add one in the panel Layers.</source>
        <translation>Der Plan hat keine Ebene für ein Bild. Fügen Sie im Bereich Ebenen eine hinzu.</translation>
    </message>
    <message>
        <source>“%1” is not inserted. %2</source>
        <translation>„%1“ ist nicht eingefügt. %2</translation>
    </message>
    <message>
        <source>Images and PDFs (*.png *.jpg *.jpeg *.gif *.bmp *.tif *.tiff *.webp *.heic *.heif *.avif *.pdf);;All files (*)</source>
        <translation>Bilder und PDFs (*.png *.jpg *.jpeg *.gif *.bmp *.tif *.tiff *.webp *.heic *.heif *.avif *.pdf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>An image is not there, or is not safe to show, and will not be printed. The panel Findings says what to do.</source>
        <translation>Ein Bild ist nicht da oder nicht sicher zu zeigen und wird nicht gedruckt. Was zu tun ist, steht im Bereich „Befunde“.</translation>
    </message>
    <message>
        <source>The plot is saved, but not all of its images</source>
        <translation>Der Plan ist gespeichert, aber nicht alle seine Bilder</translation>
    </message>
    <message>
        <source>Make room in the plot's folder, or save the plot in another one.</source>
        <translation>Schaffen Sie Platz im Ordner des Plans, oder speichern Sie den Plan in einem anderen.</translation>
    </message>
    <message>
        <source>gone: %1</source>
        <translation>weg: %1</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>&amp;Stop Comparing</source>
        <translation>Vergleich be&amp;enden</translation>
    </message>
    <message>
        <source>Changes (%1)</source>
        <translation>Änderungen (%1)</translation>
    </message>
    <message>
        <source>Compare &amp;With…</source>
        <translation>&amp;Vergleichen mit…</translation>
    </message>
    <message>
        <source>Nothing is compared. Choose an earlier state of this plot.</source>
        <translation>Nichts wird verglichen. Wählen Sie einen früheren Stand dieses Plans.</translation>
    </message>
    <message>
        <source>Row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>Link To…</source>
        <translation>Verknüpfen mit…</translation>
    </message>
    <message>
        <source>Link to a Symbol</source>
        <translation>Mit einem Symbol verknüpfen</translation>
    </message>
    <message>
        <source>&amp;Link</source>
        <translation>&amp;Verknüpfen</translation>
    </message>
    <message>
        <source>Links the selected rows to a symbol that is chosen from a list</source>
        <translation>Verknüpft die ausgewählten Zeilen mit einem Symbol aus einer Liste</translation>
    </message>
    <message>
        <source>A crash would lose what is not saved, as no copy can be kept (%1). Save the plot, in another folder if need be.</source>
        <translation>Nach einem Absturz wäre verloren, was nicht gespeichert ist: Es lässt sich keine Kopie behalten (%1). Speichern Sie den Plan, nötigenfalls in einem anderen Ordner.</translation>
    </message>
    <message>
        <source>Your edits are still in this window. Save them under another name or in another folder, or mend what is wrong and save again.</source>
        <translation>Ihre Änderungen sind noch in diesem Fenster. Speichern Sie sie unter einem anderen Namen oder in einem anderen Ordner, oder beheben Sie die Ursache und speichern Sie noch einmal.</translation>
    </message>
    <message>
        <source>Replace the files that are there already?</source>
        <translation>Vorhandene Dateien ersetzen?</translation>
    </message>
    <message>
        <source>&amp;Replace Them</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>The export is not complete</source>
        <translation>Der Export ist nicht vollständig</translation>
    </message>
    <message>
        <source>Make room, or export to another folder.</source>
        <translation>Schaffen Sie Platz, oder exportieren Sie in einen anderen Ordner.</translation>
    </message>
</context>
</TS>
