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
module long_;
    wire a_name_of_more_than_one_hundred_and_twenty_seven_characters_that_one_of_the_tools_would_replace_by_a_hash_if_it_had_its_way_with_it_here;
endmodule
module top (input a);
    my__part my__instance (a);
    my__part n7_q (.a(a));
    long_ \u/a_name_of_more_than_one_hundred_and_twenty_seven_characters_that_one_of_the_tools_would_replace_by_a_hash_if_it_had_its_way_with_it_here ();
    generate
        if (1) begin : \scope.x
            wire \q[0] ;
            my__part inner (\q[0] );
        end
    endgenerate
endmodule

//= top:top a
//= top/my__instance:my__part a n[3] a/b 3$#! c___d not_declared n12_o[1:0] __pinNumber1[1:0] unnamedblk1[1:0]
//= top/my__instance/u/1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
//= top/my__instance/u__1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
//= top/n7_q:my__part a n[3] a/b 3$#! c___d not_declared n12_o[1:0] __pinNumber1[1:0] unnamedblk1[1:0]
//= top/n7_q/u/1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
//= top/n7_q/u__1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
//= top/u/a_name_of_more_than_one_hundred_and_twenty_seven_characters_that_one_of_the_tools_would_replace_by_a_hash_if_it_had_its_way_with_it_here:long_ a_name_of_more_than_one_hundred_and_twenty_seven_characters_that_one_of_the_tools_would_replace_by_a_hash_if_it_had_its_way_with_it_here
//= top/scope.x:scope.x q[0]
//= top/scope.x/inner:my__part a n[3] a/b 3$#! c___d not_declared n12_o[1:0] __pinNumber1[1:0] unnamedblk1[1:0]
//= top/scope.x/inner/u/1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
//= top/scope.x/inner/u__1:part/1 a x__y __Vx a__DOT__b x__05Fy x.y[3:0]
