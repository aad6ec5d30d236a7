// Talks to the whole system over its serial line and ends with PASS or the first thing that is wrong.
`timescale 1ns / 1ps

module soc_tb;

    localparam DIVISOR = 16;

    reg        clk = 1'b0;
    reg        rst_n = 1'b0;
    reg        to_soc = 1'b1;
    wire       from_soc;
    tri0 [3:0] gpio; // pulled down on the board
    reg        is_high = 1'b0; // the highest of them
    wire [1:0] pwm;
    wire [0:3] led;
    integer    high_clocks;
    integer    i;

    assign gpio[3] = is_high ? 1'b1 : 1'bz;
    always #10 clk = ~clk;

    // Driven and looked at between the edges of the clock, so that it does not matter what comes first there.
    reg        tick = 1'b0;
    initial begin
        #5;
        forever #10 tick = ~tick;
    end

    soc #(.CLOCK_HZ(DIVISOR), .BAUD(1)) dut (
        .clk(clk), .rst_n(rst_n), .uart_rx(to_soc), .uart_tx(from_soc), .gpio(gpio), .pwm(pwm), .led(led));

    task send(input [7:0] data);
        integer n;
        begin
            to_soc = 1'b0;
            repeat (DIVISOR) @(posedge tick);
            for (n = 0; n < 8; n = n + 1) begin
                to_soc = data[n];
                repeat (DIVISOR) @(posedge tick);
            end
            to_soc = 1'b1;
            repeat (DIVISOR) @(posedge tick);
        end
    endtask

    // Replies come while the last byte of a command is still on its way.
    integer   replies = 0;
    integer   expected = 0;
    integer   bit_number;
    reg [7:0] reply;
    always @(negedge from_soc) if (rst_n) begin
        repeat (DIVISOR / 2) @(posedge tick);
        for (bit_number = 0; bit_number < 8; bit_number = bit_number + 1) begin
            repeat (DIVISOR) @(posedge tick);
            reply[bit_number] = from_soc;
        end
        repeat (DIVISOR) @(posedge tick);
        if (from_soc !== 1'b1) begin
            $display("FAIL: no stop bit");
            $finish;
        end
        replies = replies + 1;
    end

    task expect_reply(input [7:0] wanted);
        begin
            expected = expected + 1;
            wait (replies == expected);
            if (reply !== wanted) begin
                $display("FAIL: reply %h instead of %h", reply, wanted);
                $finish;
            end
            @(posedge tick);
        end
    endtask

    task write_register(input [15:0] address, input [7:0] data);
        begin
            send("W");
            send(address[15:8]);
            send(address[7:0]);
            send(data);
            expect_reply("K");
        end
    endtask

    task read_register(input [15:0] address, input [7:0] wanted);
        begin
            send("R");
            send(address[15:8]);
            send(address[7:0]);
            expect_reply(wanted);
        end
    endtask

    initial begin
        repeat (5) @(posedge tick);
        rst_n = 1'b1;
        repeat (5) @(posedge tick);

        write_register(16'h0012, 8'ha5);
        write_register(16'h0013, 8'h5a);
        read_register(16'h0012, 8'ha5);
        read_register(16'h0013, 8'h5a);

        // CRC-8 of "123456789" is f4.
        for (i = 1; i <= 9; i = i + 1)
            write_register(16'h5000, 8'h30 + i);
        read_register(16'h5000, 8'hf4);

        write_register(16'h3000, 8'h05);
        write_register(16'h3001, 8'h07);
        is_high = 1'b1;
        read_register(16'h3002, 8'h0d);
        read_register(16'h3003, 8'h0d);

        write_register(16'h4001, 8'd64);
        repeat (512) @(posedge tick);
        high_clocks = 0;
        repeat (256) @(posedge tick) high_clocks = high_clocks + pwm[1];
        if (high_clocks != 64 || pwm[0] !== 1'b0) begin
            $display("FAIL: PWM high for %0d clocks", high_clocks);
            $finish;
        end

        write_register(16'h2000, 8'd3);
        write_register(16'h2001, 8'd0);
        write_register(16'h2002, 8'd1);
        read_register(16'h2002, 8'h03);

        read_register(16'h7000, 8'hff);
        read_register(16'h1002, 8'h00);
        read_register(16'h6000, 8'd17);

        // What trigger.zub waits for: writes to the GPIO, then of capital letters,
        for (i = 0; i < 4; i = i + 1) begin
            write_register(16'h3000, 8'h05);
            write_register(16'h0014, "A" + i);
        end
        read_register(16'h0014, "D");
        // and a receiving FIFO that fills up, since the bus does not answer.
        force dut.bus_ack = 1'b0;
        send("W");
        send(8'h00);
        send(8'h14);
        send(8'h00);
        for (i = 0; i < 14; i = i + 1)
            send(8'h00);
        release dut.bus_ack;
        expect_reply("K");
        $display("PASS");
        $finish;
    end

    initial begin
        #20_000_000;
        $display("FAIL: no end");
        $finish;
    end

endmodule
