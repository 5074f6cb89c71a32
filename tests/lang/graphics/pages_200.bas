10 ' Four pages of 200 lines, and the third one shown.
20 SCREEN 0:FOR I=0 TO 3:SCREEN ,,I:CLS 2:CIRCLE(100+I*140,100),60,I+1,,,,F,I+4:NEXT I
30 SCREEN ,,,17
