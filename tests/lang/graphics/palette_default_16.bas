10 ' The upper eight of the sixteen colours are there in every mode.
20 SCREEN 3:CLS 3
30 FOR I=0 TO 15:CIRCLE(20+I*40,200),18,I,,,,F:NEXT I
