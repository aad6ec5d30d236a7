// For simulations: works the control port of one core and writes what it reads into FILE, as docs/gateware.md
// says. The tasks are called from outside (`reader.read_all;`) and take no time of the simulation, but for DELAY
// units for each half of the control clock when that is not 0; without a delay they wait for all that follows from
// an edge at the same moment.
module jex_reader #(
    parameter SAMPLE_BITS = 1,
    parameter SAMPLES = 1, // that are read, from address 0 on
    parameter SETTINGS = 1, // bits of the match units that are loaded
    parameter DELAY = 0,
    parameter FILE = "capture.txt"
) (
    output reg ctl_clock,
    output reg ctl_select,
    output reg ctl_capture,
    output reg ctl_shift,
    output reg ctl_update,
    output reg ctl_tdi,
    input wire ctl_tdo
);

    localparam WORDS = (SAMPLE_BITS + 31) / 32;

    reg turn = 1'b0;
    integer file;
    integer at;
    integer bit_number;
    integer word_number;
    reg [31:0] word;
    reg [32*WORDS-1:0] sample;

    initial begin
        ctl_clock = 1'b0;
        ctl_select = 1'b0;
        ctl_capture = 1'b0;
        ctl_shift = 1'b0;
        ctl_update = 1'b0;
        ctl_tdi = 1'b0;
    end

    task half;
        if (DELAY > 0) #(DELAY);
        else repeat (3) begin
            turn <= ~turn;
            @(turn);
        end
    endtask

    task tick;
        begin
            half;
            ctl_clock = 1'b1;
            half;
            ctl_clock = 1'b0;
        end
    endtask

    task shift_in;
        input value;
        begin
            ctl_tdi = value;
            ctl_shift = 1'b1;
            tick;
            ctl_shift = 1'b0;
            ctl_tdi = 1'b0;
        end
    endtask

    task update;
        begin
            ctl_update = 1'b1;
            tick;
            ctl_update = 1'b0;
            ctl_select = 1'b0;
            tick;
        end
    endtask

    task command;
        input [7:0] code;
        input [31:0] argument;
        reg [39:0] bits;
        begin
            bits = {code, argument};
            ctl_select = 1'b1;
            for (bit_number = 0; bit_number < 40; bit_number = bit_number + 1) shift_in(bits[bit_number]);
            update;
        end
    endtask

    task begin_words;
        begin
            ctl_select = 1'b1;
            ctl_capture = 1'b1;
            tick;
            ctl_capture = 1'b0;
        end
    endtask

    task read_word;
        for (bit_number = 0; bit_number < 32; bit_number = bit_number + 1) begin
            word[bit_number] = ctl_tdo;
            shift_in(1'b0);
        end
    endtask

    task arm;
        command(8'd1, 32'd0);
    endtask

    task force_line;
        input level;
        command(8'd2, {31'd0, level});
    endtask

    task load;
        input [SETTINGS-1:0] settings;
        integer setting;
        begin
            command(8'd5, 32'd0);
            ctl_select = 1'b1;
            for (setting = 0; setting < SETTINGS; setting = setting + 1) shift_in(settings[setting]);
            update;
        end
    endtask

    task read_status;
        begin
            command(8'd3, 32'd0);
            begin_words;
            $fwrite(file, "status");
            repeat (3) begin
                read_word;
                $fwrite(file, " %b", word);
            end
            $fwrite(file, "\n");
            update;
        end
    endtask

    task read_samples;
        begin
            command(8'd4, 32'd0);
            begin_words;
            for (at = 0; at < SAMPLES; at = at + 1) begin
                for (word_number = 0; word_number < WORDS; word_number = word_number + 1) begin
                    read_word;
                    sample[32*word_number+:32] = word;
                end
                $fwrite(file, "%b\n", sample[SAMPLE_BITS-1:0]);
            end
            update;
        end
    endtask

    task read_all;
        begin
            file = $fopen(FILE, "w");
            read_status;
            read_samples;
            $fclose(file);
        end
    endtask

endmodule
