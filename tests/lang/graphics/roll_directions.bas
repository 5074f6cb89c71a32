10 ' ROLL moves up, then left; what opens is filled with 0 or the background.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),2,B:LINE(100,100)-(300,300),6,BF,1:CIRCLE(400,200),150,5
30 ROLL 20:ROLL -5:ROLL ,30:ROLL ,-7
40 COLOR 7,4:ROLL 10,10,Y:ROLL -3,-3,N:ROLL -40,20,Y
