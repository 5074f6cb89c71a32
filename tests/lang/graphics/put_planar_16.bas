10 ' Four planes in the mode of 16 colours.
20 SCREEN 3:COLOR 7,0,0,7,2:CLS 3:DIM A%(10)
30 A%(0)=16:A%(1)=1:A%(2)=&H5555:A%(3)=&H3333:A%(4)=&HF0F:A%(5)=&HFF00
40 FOR I=0 TO 20:PUT@(20+I,20+I*3),A%,PSET:NEXT I
