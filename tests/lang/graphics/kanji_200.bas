10 ' In a 200-line mode kanji are twice as high on the screen.
20 SCREEN 0:CLS 3
30 FOR I=0 TO 9:PUT@(100+I*20,50+I*5),KANJI(&H2422+I*2),PSET,I MOD 7+1,0:NEXT I
