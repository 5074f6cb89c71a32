10 ' Coordinates beyond all integers, infinite ones and those that are no numbers.
20 SCREEN 3:CLS 3
30 H=10^30:I=H*H:N=SQR(-1)
40 LINE(H,100)-(639,100),1:LINE(320,-H)-(320,50),2
50 LINE(N,N)-(639,399),3:LINE(0,0)-(I,399),4:LINE(-I,30)-(600,N),5
60 LINE(H,H)-(-I,N),5
70 LINE(600,H)-(20,380),6,B:LINE(-H,390)-(630,395),7,BF
80 LINE-(N,200),2:LINE-(300,220),5
90 PSET(N,H),7:LINE-(100,399),4
