// Escaped names, and names that look like those a tool makes up.
module \part/1 (input a);
    wire x__y, __Vx, a__DOT__b, x__05Fy;
    wire [3:0] \x.y ;
endmodule

module my__part (input a);
    wire \n[3] , \a/b , \3$#! , c___d;
    wire [1:0] n12_o, __pinNumber1, unnamedblk1;
    \part/1 \u/1 (a);
    \part/1 u__1 (not_declared);
endmodule

module top (input a);
    my__part my__instance (a);
    my__part n7_q (.a(a));
    generate
        if (1) begin : \scope.x
            wire \q[0] ;
            my__part inner (\q[0] );
        end
    endgenerate
endmodule
