10 ' New text takes the text colour, old text keeps its own.
20 SCREEN 0:CLS 3:FOR I=1 TO 7:COLOR I:PRINT "Colour";I:NEXT I:COLOR 3:PRINT "Last"
