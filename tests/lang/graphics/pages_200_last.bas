10 ' The last of the four pages has two display codes.
20 SCREEN 0:FOR I=0 TO 3:SCREEN ,,I:CLS 2:NEXT I:CIRCLE(380,100),60,3,,,,F,6
30 SCREEN ,,,18
